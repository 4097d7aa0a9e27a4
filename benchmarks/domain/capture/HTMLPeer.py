"""CPython's side of HTMLBenchmarks.cpp: `python3 HTMLPeer.py FOLDER`.

Reads the pages 0.html, 1.html ... of the folder and prints, for each task, its name, the seconds that the best of five
passes over all pages took, and a checksum of everything that came out. The pages are decoded before the clock runs.
"""

import html
import html.parser
import itertools
import pathlib
import sys
import time
import zlib


class Counter(html.parser.HTMLParser):
    """What a caller does at the least: takes every tag, attribute and decoded text."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.count = 0

    def handle_starttag(self, tag, attrs):
        self.count += 1 + len(attrs)

    def handle_endtag(self, tag):
        self.count += 1

    def handle_data(self, data):
        self.count += 1


class Writer(html.parser.HTMLParser):
    """Writes every event down, for the checksum."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.written = []

    def handle_starttag(self, tag, attrs):
        self.written.append("S" + tag)
        for name, value in attrs:
            self.written.append("A" + name)
            if value is not None:
                self.written.append("V" + value)

    def handle_endtag(self, tag):
        self.written.append("E" + tag)

    def handle_data(self, data):
        self.written.append("T" + data)


def parse(page, parser):
    parser.feed(page)
    parser.close()
    return parser


def written(page):
    return "\n".join(parse(page, Writer()).written)


def report(task, work, answer, pages):
    times = []
    for _ in range(5):
        start = time.perf_counter()
        for page in pages:
            work(page)
        times.append(time.perf_counter() - start)
    checksum = 0
    for page in pages:
        checksum = zlib.crc32(answer(page).encode(), checksum)
    print(task, min(times), checksum)


def main(folder):
    pages = []
    for number in itertools.count():
        path = pathlib.Path(folder, f"{number}.html")
        if not path.exists():
            break
        pages.append(path.read_bytes().decode("utf-8", "replace"))
    report("events", lambda page: parse(page, Counter()), written, pages)
    report("unescape", html.unescape, html.unescape, pages)


main(sys.argv[1])
