"""Vectors of json.dumps with ensure_ascii: rows of (JSON text, its value in the order of its keys, and sorted)."""

import json
import random
import struct

from tessary_rows import row, unique

# Layouts of floating point change at 1e-4 and 1e16; the rest are the ends of the range and known hard cases.
FLOATS = [0.0, -0.0, 1.0, -1.0, 0.1, 0.5, 1.5, 100000.0, 123456789.0, 1e15, 9999999999999998.0, 1e16, -1e16, 1.5e16,
          12345678901234567.0, 1e17, 1e21, 1e22, 1e23, 0.001, 0.0001, 0.00012, 1e-05, -1e-05, 1.5e-05, 9.999e-05, 1e-07,
          1e100, 1.7976931348623157e308, 2.2250738585072014e-308, 2.225073858507201e-308, 5e-324, -5e-324, 1e-323,
          9007199254740992.0, 9007199254740993.0, 0.30000000000000004, 2.0**63, 2.0**64, 1 / 3, 1e9, 1e-10, 5e-05]
SPELLINGS = ["-0", "-0.0", "0e5", "-0e-5", "1E5", "1e5", "10e-1", "1.0", "1.50", "100e-2", "0.1e1", "1e16", "1e+16",
             "10000000000000000.0", "1e-5", "0.00001", "1e-400", "-1e-400", "4.9e-324", "2.4e-324", "0.1000000000000000055",
             "123456789012345678901234567890.0", "9007199254740993.0", "true", "false", "null", "[]", "{}", "[ ]", "{ }",
             "[0,1,true,false,0.0,1.0]", '{"a":1,"a":2}', '{"b":1,"a":0,"b":[]}', '"\\/"', '"\\u00E9\\uD83D\\uDE00"',
             '[[],{},[{}],{"":[]},""]', ' \t\r\n[1 , 2]\n']
INTEGERS = [0, 1, -1, 2**31, 2**53 + 1, 2**63 - 1, 2**63, -(2**63), -(2**63) - 1, 2**64 - 1, 2**64, 10**19, -(10**20),
            10**60 + 7, -(10**100), int("123456789" * 40)]
NONCHARACTERS = [0xFDD0, 0xFDEF, 0xFFFE, 0xFFFF, 0x1FFFE, 0x1FFFF, 0x10FFFE, 0x10FFFF]
EDGES = [0x7E, 0x7F, 0x80, 0x9F, 0xA0, 0xE9, 0x7FF, 0x800, 0x2028, 0x2029, 0xD7FF, 0xE000, 0xFEFF, 0xFFFD, 0x10000,
         0x1F600, 0x20000, 0xFFFFF, 0x100000]
# Sorting by UTF-16 units would put what lies beyond the basic plane in front of U+E000 to U+FFFF.
KEYS = ["", "\x00", "\n", " ", "!", '"', "/", "0", "10", "2", "A", "Z", "\\", "a", "aa", "ab", "b", "\x7f", "\x80", "é",
        "\ud7ff", "\ue000", "\uff5e", "\uffff", "\U00010000", "😀", "\U0010ffff", "a😀", "a\uffff"]


def random_float(rng):
    while True:
        value = struct.unpack("<d", struct.pack("<Q", rng.getrandbits(64)))[0]
        if value - value == 0:
            return value


def random_text(rng):
    pool = list(range(0x20)) + [0x22, 0x5C, 0x2F] * 3 + list(range(0x20, 0x7F)) + NONCHARACTERS + EDGES
    return "".join(chr(rng.choice(pool)) for _ in range(rng.randint(0, 12)))


def random_value(rng, depth):
    kind = rng.randrange(10 if depth > 0 else 7)
    if kind < 2:
        return random_text(rng)
    if kind < 7:
        return [None, rng.random() < 0.5, rng.choice(INTEGERS), rng.choice(FLOATS), random_float(rng)][kind - 2]
    if kind == 7:
        return [random_value(rng, depth - 1) for _ in range(rng.randint(0, 4))]
    keys = rng.sample(KEYS, rng.randint(0, 6)) + ([random_text(rng)] if rng.random() < 0.3 else [])
    return {key: random_value(rng, depth - 1) for key in keys}


def inputs(rng):
    values = FLOATS + INTEGERS + [random_float(rng) for _ in range(300)]
    for exponent in range(-25, 26):
        values += [float(f"1e{exponent}"), float(f"-1.25e{exponent}"), float(f"9.999999999999999e{exponent}")]
    values += [chr(scalar) for scalar in list(range(0x80)) + NONCHARACTERS + EDGES]
    values += [{chr(scalar): chr(scalar) * 2} for scalar in list(range(0x20)) + NONCHARACTERS + EDGES]
    values += [random_text(rng) for _ in range(150)]
    for _ in range(100):
        keys = rng.sample(KEYS, rng.randint(2, len(KEYS)))
        values.append({key: index for index, key in enumerate(keys)})
    values += [random_value(rng, 4) for _ in range(300)]
    values += [{key: {inner: [] for inner in reversed(KEYS)} for key in reversed(KEYS[::4])}]
    return unique(SPELLINGS + [json.dumps(value, ensure_ascii=False) for value in values])


def vectors():
    rng = random.Random(20260306)
    out = []
    for text in inputs(rng):
        value = json.loads(text)
        out.append(row(text, json.dumps(value, sort_keys=False, ensure_ascii=True),
                       json.dumps(value, sort_keys=True, ensure_ascii=True)))
    return [("json.tsv", "".join(out))]
