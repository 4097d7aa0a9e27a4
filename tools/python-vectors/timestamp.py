"""Vectors of datetime.fromisoformat: the text, and the microseconds since 1970-01-01 UTC, "naive" or "invalid".

Where Tessary departs from CPython on purpose, the name of the departure follows, and CPython's answer stands all the same:

mark      a decimal mark directly behind the hours or the minutes, which CPython passes over where an offset follows
month     24:00 on day 0 of month 0, which CPython takes for 1 January
fraction  an offset below a second, which CPython drops; its microseconds follow
"""

import random
import re
from datetime import datetime, timedelta, timezone

from tessary_rows import row, unique

EPOCH = datetime(1970, 1, 1, tzinfo=timezone.utc)

DATES = ["2026-01-02", "20260102", "2026-W01-1", "2026W011", "2026-W01", "2026W01", "2024-02-29", "2023-02-29", "2026-W53-1",
         "2020-W53-7", "2015W537", "0001-01-01", "9999-12-31", "0000-12-31", "2026-0102", "202601-02", "2026-001", "2026001",
         "2026-W011", "2026W01-1", "2026-1-2", "2026-13-01", "2026-00-10", "2026-01-00", "2026-04-31", "2026-W00-1",
         "2026-W54-1", "2026-W01-0", "2026-W01-8", "0000-W01-1", "0001-W01-1", "9999-W52-5", "9999-W52-6", "9999W527", "2000",
         "2000-01", "1900-02-29", "2000-02-29", "2026-w01-1", "+026-01-02", "2026/01/02", "2026-01/02", " 026-01-02"]
SEPARATORS = ["T", " ", "t", "\u00e9", "\ud55c", "\U0001f600", "-", "W", "5", "", "TT", "\u2028", "Z", "+", "\0"]
CLOCKS = ["03", "03:04", "03:04:05", "030405", "0304", "03:04:05.6", "03:04:05,67", "030405.678", "030405,6789", "030405678",
          "0304056", "03:", "03:04:", "03:04:05:", "03.", "03,", "03:04.", "03:04,5", "03.5", "0304.5", "0304,", "030405.", "030405,",
          "03:0405", "0304:05", "3:04:05", "03:4:05", "03:04:5", "24", "24:00", "24:00:00", "240000", "24:00:00.000000",
          "24:00:00.0000001", "24:00:01", "24:01:00", "24:00:00.000001", "25:00", "23:60", "23:59:60", "23:59:59.999999", "",
          "0", "03:04:05x", "03:04x", "03x", "03:04:05.x", "03:04:05.6x", "03:04:05.123456x", "03:04:05.1234567x", "03 ", "03:04 ",
          "03:04:05 ", "03:04:05.123456 ", "03:04:05 .5", "\uff10\uff13:04", "03:04:05.\u0665", "03:04:05.6\0", "03\0", "03:04\0",
          "03:04:05\0", "030\0", "03:04:05.123456\0"]
OFFSETS = ["", "Z", "z", "+00", "+00:00", "-00:00", "+0000", "+05:30", "-0530", "+01:02:03", "+010203", "-01:02:03.4",
           "+01:02:03.456789", "+010203.456789", "+01:02:03,5", "+23:59", "-23:59", "+23:59:59.999999", "-23:59:59.999999",
           "+23:59:59.9999999", "+24:00", "-24:00", "+24", "+23:60", "+23:59:60", "+22:99", "+00:99:99", "+1", "+1:00", "+", "-",
           "+01:", "+01:0", "+01:00:", "+01.", "+01:00.", "+01:00.5", "+01:00:00.", "+01:00x", "+01:00 ", "+01:00Z", "Zx", "ZZ",
           "Z ", "++01:00", "+-01:00", " +01:00", " Z", "+01:00\0", "+01\0", "+01:00\0x", "Z\0", "Z\0x", "Z\0\0", "+01:00:00.5x",
           "+01:00:00.1234567", "+01:00:00.1234567x", "+01:00:00.1234567\0x", "-00:00:00.000001", "+00:00:00.5", "\u221201:00",
           "+\u0660\u0661:00", "UTC", "+0100:00", "+01:0000", "+010", "+01000"]


def answer(text):
    try:
        moment = datetime.fromisoformat(text)
    except ValueError:
        return "invalid"
    if moment.tzinfo is None:
        return "naive"
    return (moment - EPOCH) // timedelta(microseconds=1)


DATE = r"\d{4}-?(?:W\d\d(?:-?\d)?|\d\d-?\d\d)"
MARK = re.compile(DATE + r".\d\d(?::?\d\d)?[.,][-+Z]", re.DOTALL)
MONTH = re.compile(r"\d{4}-?00-?00")
FRACTION = re.compile(r"([-+])(?:00:00:00[.,]|000000[.,]?)(\d{1,6})\d*(?:\0.*)?\Z", re.DOTALL)


def departure(text):
    if MARK.match(text):
        return ["mark"]
    if MONTH.match(text):
        return ["month"]
    if match := FRACTION.search(text):
        return ["fraction", int(match[1] + match[2].ljust(6, "0"))]
    return []


def vector(text):
    result = answer(text)
    return row(text, result, *(departure(text) if isinstance(result, int) else []))


def separator_rules():
    """Every ASCII character, and some others, in every place where the separator may be sought."""
    characters = [chr(c) for c in range(128)] + ["\u0080", "\u00e9", "\u07ff", "\u0800", "\ud55c", "\uffff", "\U00010000",
                                                "\U0010ffff", "\u0301", "\u200b"]
    for character in characters:
        for date in ["2026-01-02", "20260102", "2026-W01-1", "2026W011", "2026-W01", "2026W01"]:
            yield f"{date}{character}03:04:05Z"
        for date in ["2026-01-02", "2026-W01", "2026W01"]:
            yield f"{date}{character}0304+01:00"
        yield f"2026-01-02T03:04:05{character}Z"
        yield f"2026-01-02T03{character}04Z"
        yield f"2026-01-02T03:04{character}05Z"
        yield f"2026-01-02T03:04:05.5{character}Z"
        yield f"2026-01-02T03:04:05.123456{character}Z"
        yield f"2026-01-02T03:04:05Z{character}"
        yield f"2026-01-02T03:04:05+01:00{character}"
        yield f"2026{character}01-02T03:04:05Z"
        yield f"2026-W01{character}1T03:04:05Z"


def fractions():
    digits = "987654321012"
    for mark in ".,":
        for count in range(13):
            for junk in ["", "x", " ", ".", ":5", "\0", "\u00e9", "\0x", "x7"]:
                for offset in ["", "Z", "+01:00", "-01:00:00" + mark + digits[:count] + junk]:
                    yield f"2026-01-02T03:04:05{mark}{digits[:count]}{junk}{offset}"
                    if junk in ("", "x"):
                        yield f"20260102T030405{mark}{digits[:count]}{junk}{offset}"
                        yield f"20260102T030405{digits[:count]}{junk}{offset}"


def rollovers():
    for year in ["0000", "0001", "1900", "1999", "2000", "2023", "2024", "9998", "9999"]:
        for month in range(14):
            for day in [0, 1, 28, 29, 30, 31, 32]:
                yield f"{year}-{month:02}-{day:02}T24:00:00Z"
                if day in (0, 29, 31):
                    yield f"{year}-{month:02}-{day:02}T00:00:00Z"
                    yield f"{year}-{month:02}-{day:02}T24:00:00.000001-00:01"


def weeks():
    for year in [0, 1, 2, 3, 4, 1900, 2000, 2004, 2008, 2015, 2020, 2021, 2024, 2025, 2026, 2032, 9998, 9999]:
        for week in [0, 1, 2, 9, 52, 53, 54]:
            for day in range(9):
                yield f"{year:04}-W{week:02}-{day}T00:00Z"
            yield f"{year:04}W{week:02}T00:00Z"
            yield f"{year:04}W{week:02}7T24:00Z"
            yield f"{year:04}-W{week:02}T00:00Z"


def digit_runs():
    """Week dates without separators, whose separator is guessed from the length of a run of digits."""
    for count in range(12):
        for tail in ["", "Z", "T00Z", ":00Z", "+00:00", ":", "x"]:
            yield "2026W" + "0120304050607"[:count] + tail
            yield "2026-W" + "0120304050607"[:count] + tail
            yield "2026-W01-" + "120304050607"[:count] + tail


def mutations(rng, count):
    alphabet = "0123456789" * 2 + "--::+.,WZT \0" + "x\u00e9\ud55c\U0001f600"
    for _ in range(count):
        characters = list(rng.choice(DATES[:12]) + rng.choice(SEPARATORS[:3]) + rng.choice(CLOCKS[:12]) + rng.choice(OFFSETS[:16]))
        for _ in range(rng.randint(1, 3)):
            place = rng.randrange(len(characters) + 1)
            kind = rng.randrange(4)
            if kind == 0:
                characters.insert(place, rng.choice(alphabet))
            elif kind == 1 and characters:
                characters.pop(place - 1)
            elif characters:
                characters[place - 1] = rng.choice(alphabet)
        yield "".join(characters)


def moments(rng, count):
    """Points in time of the whole range, written in many of the ways that name them."""
    for _ in range(count):
        offset = rng.choice([0, 60 * rng.randint(-1439, 1439), rng.randint(-86399, 86398)])
        offset_micro = 0 if offset == 0 else rng.choice([0, 0, 0, rng.randint(0, 999999)])
        micro = rng.choice([0, 0, rng.randint(0, 999999)])
        zone = timezone(timedelta(seconds=offset, microseconds=offset_micro))
        moment = datetime(rng.choice([rng.randint(1, 9999), rng.randint(1965, 2040)]), rng.randint(1, 12), rng.randint(1, 28),
                          rng.randint(0, 23), rng.randint(0, 59), rng.randint(0, 59), micro, zone)
        text = moment.isoformat(rng.choice("T _"))
        if rng.random() < 0.3:
            year, week, day = moment.isocalendar()
            text = f"{year:04}-W{week:02}-{day}" + text[10:]
        if rng.random() < 0.2:
            text = text[:10].replace("-", "") + text[10:]
        if rng.random() < 0.2:
            text = text[:8] + text[8:].replace(":", "")
        if rng.random() < 0.2:
            text = text.replace(".", ",")
        yield text


def crossings(rng, count):
    for date in DATES:
        yield date
        for separator in SEPARATORS:
            yield f"{date}{separator}03:04:05Z"
    for clock in CLOCKS:
        for offset in ["", "Z", "+05:30", "-01:02:03.4", "+01."]:
            yield f"2026-01-02T{clock}{offset}"
            yield f"20260102 {clock}{offset}"
    for offset in OFFSETS:
        for clock in ["03:04:05", "0304", "03", "03:04:05.123456", "24:00", "03:04:05.1234567", "03:"]:
            yield f"2026-01-02T{clock}{offset}"
        yield f"0001-01-01T00:00:00{offset}"
        yield f"9999-12-31T23:59:59.999999{offset}"
    for _ in range(count):
        yield rng.choice(DATES) + rng.choice(SEPARATORS) + rng.choice(CLOCKS) + rng.choice(OFFSETS)


def short_texts():
    for text in ["2026-01-02T03:04:05Z", "20260102T030405Z", "2026W01T03Z", "2026-W01T03Z", "\ud55c\uae00\ud55c\uae00\ud55c\uae00",
                 "2026\U0001f600W1", "\U0001f600" * 7, "2026-W0\u00e9", "2026W0\u00e9\u00e9"]:
        for count in range(len(text) + 1):
            yield text[:count]


def vectors():
    rng = random.Random(20260103)
    texts = [*short_texts(), *separator_rules(), *fractions(), *rollovers(), *weeks(), *digit_runs(), *crossings(rng, 2500),
             *moments(rng, 1500), *mutations(rng, 4000)]
    return [("timestamp.tsv", "".join(vector(text) for text in unique(texts)))]
