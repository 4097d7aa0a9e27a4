#!/usr/bin/env python3
"""Makes tests/vectors/time/moments.tsv: the first moment at which the clocks of a zone show a time, or the moment at
which they skip it. The authority is CPython's zoneinfo over the system's copy of the IANA database; what is asked of
it is only `utcoffset`, and every minute of two days is tried. Run: tools/time/make_moments.py > …/moments.tsv

The years end with 2021, and zones whose history was corrected of late are left out, so that different editions of the
database agree. Columns: zone, day, minute of the day, seconds since 1970.
"""

import random
from datetime import date, datetime, timedelta, timezone
from zoneinfo import ZoneInfo

ZONES = """Europe/Berlin Europe/London Europe/Dublin Europe/Moscow Europe/Istanbul America/New_York
America/Los_Angeles America/Sao_Paulo America/Havana America/St_Johns America/Caracas America/Santiago Asia/Seoul
Asia/Tokyo Asia/Kathmandu Asia/Kolkata Asia/Pyongyang Asia/Beirut Asia/Gaza Africa/Cairo Africa/Casablanca
Australia/Lord_Howe Australia/Sydney Pacific/Apia Pacific/Kwajalein Pacific/Kiritimati Pacific/Auckland
Pacific/Chatham Antarctica/Troll UTC""".split()

MINUTE = timedelta(minutes=1)
EPOCH = datetime(1970, 1, 1, tzinfo=timezone.utc)


def first_moment(zone, day, minute):
    wanted = datetime(day.year, day.month, day.day) + minute * MINUTE
    moment = wanted.replace(tzinfo=timezone.utc) - timedelta(hours=25)
    while moment.astimezone(zone).replace(tzinfo=None) < wanted:
        moment += MINUTE
    return int((moment - EPOCH).total_seconds())


def days_of_change(zone):
    """Every day between 1973 and 2021 on which the offset changes, and its neighbours."""
    days = set()
    moment = datetime(1973, 1, 2, tzinfo=timezone.utc)
    while moment.year < 2021 or moment.month < 12:
        later = moment + timedelta(days=1)
        if moment.astimezone(zone).utcoffset() != later.astimezone(zone).utcoffset():
            days.update((moment + timedelta(days=n)).date() for n in (-1, 0, 1, 2))
        moment = later
    return sorted(days)


def main():
    chooser = random.Random(1973)
    for name in ZONES:
        zone = ZoneInfo(name)
        changes = days_of_change(zone)
        days = chooser.sample(changes, min(24, len(changes)))
        days += [date(1973, 1, 1) + timedelta(days=chooser.randrange(17_800)) for _ in range(4)]
        for day in sorted(days):
            for minute in (0, chooser.randrange(240), chooser.randrange(1_440)):
                print(name, day, minute, first_moment(zone, day, minute), sep="\t")


main()
