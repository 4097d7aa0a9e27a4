"""Vectors of datetime.timestamp(): the text, and the seconds since 1970-01-01 UTC as float.hex() writes them, or "absent".

The text is read as the capture engine in Python read it, every "Z" in it replaced by "+00:00". Where Tessary's reading of
times departs from CPython's on purpose (see timestamp.py), the answer is what follows from the departure.
"""

import random
from datetime import datetime, timedelta, timezone

import tessary_timestamp as timestamp
from tessary_rows import row, unique

EPOCH = timestamp.EPOCH


def seconds(text):
    text = text.replace("Z", "+00:00")
    micro = timestamp.answer(text)
    if not isinstance(micro, int):
        return "absent"
    match timestamp.departure(text):
        case []:
            return datetime.fromisoformat(text).timestamp().hex()
        case ["fraction", offset]:
            return ((micro - offset) / 10**6).hex()
        case _:
            return "absent"


FIRST = (datetime.min.replace(tzinfo=timezone.utc) - EPOCH) // timedelta(microseconds=1)
LAST = (datetime.max.replace(tzinfo=timezone.utc) - EPOCH) // timedelta(microseconds=1)


def instants(rng, count):
    """Points in time by their microseconds: all of the range, near 1970, and where 53 bits begin not to suffice."""
    for micro in [0, FIRST, LAST, *range(-3, 4), *range(2**53 - 5, 2**53 + 6), *range(-(2**53) - 5, -(2**53) + 6)]:
        yield micro
    for power in range(1, 58):
        for near in (2**power - 1, 2**power, 2**power + 1):
            yield near
            yield -near
    for _ in range(count):
        yield rng.randint(FIRST, LAST)
        yield rng.randint(-(10**9), 10**9)
        yield rng.randint(1_700_000_000_000_000, 1_900_000_000_000_000)


def written(micro):
    moment = EPOCH + timedelta(microseconds=micro)
    yield moment.isoformat()
    yield moment.isoformat().replace("+00:00", "Z")


def letters():
    """Every place of "Z", which is replaced also where it is no offset."""
    text = "2026-01-02T03:04:05.678+00:00"
    for place in range(len(text) + 1):
        yield text[:place] + "Z" + text[place:]
        yield text[:place] + "Z" + text[place + 1:]
        yield text[:place] + "z" + text[place + 1:]
    yield from ["Z", "ZZ", "z", "", "2026-01-02Z03:04:05Z", "2026-01-02T03:04:05ZZ", "2026-01-02T03:04:05z", "2026-01-01T00:00:00Z",
                "2026-01-02T03Z", "2026-01-02TZ", "2026-01-02Z", "20260102T03Z04", "2026-01-02\u00e903:04:05Z", "2026-01-02T03:04Zx",
                "2026-01-02T03:04:05\uff3a", "\uff12026-01-02T03:04:05Z"]


def vectors():
    rng = random.Random(20260105)
    texts = [text for micro in unique(instants(rng, 400)) if FIRST <= micro <= LAST for text in written(micro)]
    texts += [*letters(), *timestamp.crossings(rng, 300), *timestamp.moments(rng, 300), *timestamp.mutations(rng, 400)]
    return [("eventseconds.tsv", "".join(row(text, seconds(text)) for text in unique(texts)))]
