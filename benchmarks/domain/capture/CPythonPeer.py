"""Times an operation of CPython over the texts of a file, and says what it answered.

    python3 CPythonPeer.py OPERATION FILE

FILE holds texts separated by zero bytes. The first line of the output is nanoseconds per text, of the best of several
rounds; the others are the answers, in hexadecimal, one line for each text.
"""

import json
import sys
import time
from datetime import datetime, timedelta, timezone
from posix import _path_normpath

EPOCH = datetime(1970, 1, 1, tzinfo=timezone.utc)

# What is timed, and what makes text of its answer.
OPERATIONS = {
    "json": (lambda text: json.dumps(json.loads(text)), str),
    "splitlines": (str.splitlines, "\0".join),
    "normpath": (_path_normpath, lambda path: path or "."),
    "microseconds": (datetime.fromisoformat, lambda moment: str((moment - EPOCH) // timedelta(microseconds=1))),
}


def once(function, texts):
    start = time.perf_counter_ns()
    for text in texts:
        function(text)
    return time.perf_counter_ns() - start


def nanoseconds(function, texts):
    repeated = texts * max(1, 20000 // len(texts)) if len(texts[0]) < 1000 else texts
    best, spent = None, 0
    while spent < 500_000_000:
        passed = once(function, repeated)
        spent += passed
        best = passed if best is None else min(best, passed)
    return best / len(repeated)


def main():
    function, shown = OPERATIONS[sys.argv[1]]
    with open(sys.argv[2], encoding="utf-8", newline="") as file:
        texts = file.read().split("\0")
    answers = [shown(function(text)).encode("utf-8").hex() for text in texts]
    print(nanoseconds(function, texts))
    print("\n".join(answers))


main()
