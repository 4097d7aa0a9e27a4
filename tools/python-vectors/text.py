"""Vectors of the methods of str."""

import random
import sys

from tessary_rows import row, unique

SURROGATES = range(0xD800, 0xE000)
SCALARS = [scalar for scalar in range(sys.maxunicode + 1) if scalar not in SURROGATES]

# White space and line ends, their neighbours, and what other definitions of white space hold.
SPACES = [scalar for scalar in SCALARS if chr(scalar).isspace()]
LINE_ENDS = [scalar for scalar in SCALARS if len(f"a{chr(scalar)}b".splitlines()) == 2]
NEIGHBOURS = [0x00, 0x08, 0x0E, 0x1B, 0x21, 0x7F, 0x84, 0x86, 0x9F, 0xA1, 0x167F, 0x1681, 0x180E, 0x1FFF, 0x200B, 0x200D,
              0x2027, 0x202A, 0x202E, 0x2030, 0x205E, 0x2060, 0x2FFF, 0x3001, 0xFEFF, 0xFFFD, 0x10FFFF]
ORDINARY = [ord(c) for c in "ab/.K-\\\u00e9\u00df\u212a\ud55c\u0301"] + [0x1F600, 0x1F468]


def texts(rng, alphabet, count, longest):
    made = []
    for _ in range(count):
        made.append("".join(chr(rng.choice(alphabet)) for _ in range(rng.randint(0, longest))))
    return unique(made)


def spaced_texts(rng):
    chosen = ["", " ", "\n", "\r\n", "\r\r\n\n", "a\r\nb\rc\u2028d", "a\x1fb", "a\n\nb", "\u001ca\u0085", "\ufeffa", "a\r",
              "\r\na", "a\r\u0085\nb", "\u2028\u2029", "a \u3000b  c", "\u200b", "x\u180ey"]
    for scalar in SPACES + NEIGHBOURS:
        c = chr(scalar)
        chosen += [c, c + c, f"a{c}b", f"{c}a", f"a{c}", f"{c} a{c}{c}b {c}", f"\r{c}\n"]
    alphabet = SPACES + LINE_ENDS * 2 + NEIGHBOURS + ORDINARY * 4
    ascii_alphabet = [scalar for scalar in alphabet if scalar < 0x80]
    return unique(chosen + texts(rng, alphabet, 600, 12) + texts(rng, ascii_alphabet, 200, 32))


def sought_texts(rng):
    """(text, needle) with needles that often nearly occur."""
    alphabet = [ord(c) for c in "aab\u00e9\u00e8\ud55c"] + [0x1F600]
    for text in texts(rng, alphabet, 500, 12):
        if text and rng.random() < 0.7:
            start = rng.randrange(len(text))
            needle = text[start:start + rng.randint(0, 4)]
            if rng.random() < 0.3:
                needle += chr(rng.choice(alphabet))
        else:
            needle = "".join(chr(rng.choice(alphabet)) for _ in range(rng.randint(0, 3)))
        yield text, needle


def ranges(scalars):
    rows, start = [], None
    for scalar in scalars:
        if start is None or scalar != end + 1:
            if start is not None:
                rows.append(row(start, end))
            start = scalar
        end = scalar
    return "".join(rows + [row(start, end)])


def vectors():
    rng = random.Random(20260101)
    spaced = spaced_texts(rng)
    out = []
    for text in spaced:
        out.append(row("strip", text, text.strip()))
        out.append(row("lstrip", text, text.lstrip()))
        out.append(row("split", text, text.split()))
        out.append(row("splitlines", text, text.splitlines()))
    for text in spaced[::3]:
        count = rng.randint(0, len(text) + 1)
        out.append(row("prefix", text, count, text[:count]))
        separator = rng.choice(text) if text else "/"
        out.append(row("components", text, ord(separator), text.split(separator)))
    for text, needle in sought_texts(rng):
        out.append(row("contains", text, needle, needle in text))
        out.append(row("startswith", text, needle, text.startswith(needle)))
        out.append(row("endswith", text, needle, text.endswith(needle)))
    folding = [scalar for scalar in SCALARS if scalar >= 0x80 and any("a" <= c <= "z" for c in chr(scalar).casefold())]
    fold_alphabet = [ord(c) for c in "AZaz@[`{09_-."] * 2 + folding + [0xC9, 0xE9, 0x391, 0x3C3, 0x414, 0x13A0, 0xAB70]
    for text in texts(rng, fold_alphabet, 500, 8):
        out.append(row("casefold", text, text.casefold()))
    return [
        ("spaces.tsv", ranges(SPACES)),
        ("line-ends.tsv", ranges(LINE_ENDS)),
        ("ascii-folds.tsv", "".join(row(scalar, chr(scalar).casefold()) for scalar in folding)),
        ("text.tsv", "".join(out)),
    ]
