"""Vectors of posixpath.normpath, posixpath.splitroot and pathlib.PurePosixPath."""

import itertools
import posixpath
import random
from pathlib import PurePosixPath

from tessary_rows import row, unique

PIECES = ["", "", ".", "..", "a", "b", "..a", ".a", "a.", "...", "a.b", "a.tar.gz", "\u00e9", "\ud55c\uae00.md", "a b", "\\",
          "e\u0301", "\U0001f600.x", "A", "\u212a", "~", "a\nb", ".hermes"]
CHOSEN = ["", ".", "..", "/", "//", "///", "////", "/.", "/..", "//..", "//a/../b", "/a/..", "../a/..", "a/..", "a/../..",
          "a/../../b", "///a/./b/", "//a//b", "./a//b/.", "/a/b/", "/...", "/.../.", "a/b/../../../c", "a\0b/../c", "/\0/..",
          ".bashrc", "..a.b", "...", "foo.", "a.tar.gz", ".a.", "..", "a..b", "a..", ".a.b.", "/..a", "/a..", "/.a/..b"]


def random_paths(rng, count):
    return [rng.choice(["", "", "/", "/", "//", "///"]) + "/".join(rng.choice(PIECES) for _ in range(rng.randint(0, 8)))
            for _ in range(count)]


def all_paths(alphabet, longest):
    return ["".join(c) for n in range(longest + 1) for c in itertools.product(alphabet, repeat=n)]


def vectors():
    rng = random.Random(20260102)
    out = []
    for text in unique(CHOSEN + all_paths("/.a", 6) + random_paths(rng, 1200)):
        out.append(row("normpath", text, posixpath.normpath(text)))
    for text in unique(CHOSEN + all_paths("/.a", 4) + random_paths(rng, 700)):
        path = PurePosixPath(text)
        _, root, rest = posixpath.splitroot(text)
        out.append(row("splitroot", text, root, rest))
        out.append(row("path", text, str(path), list(path.parts), path.name, path.suffix, str(path.parent),
                       [str(parent) for parent in path.parents]))
    related = unique(CHOSEN + random_paths(rng, 500))
    for _ in range(1500):
        first = rng.choice(related)
        if rng.random() < 0.6:
            second = first + "/" + rng.choice(related)
        elif rng.random() < 0.5:
            second = str(PurePosixPath(first).parent)
        else:
            second = rng.choice(related)
        if rng.random() < 0.3:
            first, second = second, first
        out.append(pair(first, second))
    return [("path.tsv", "".join(out))]


def pair(first, second):
    a, b = PurePosixPath(first), PurePosixPath(second)
    try:
        relative = list(a.relative_to(b).parts)
    except ValueError:
        relative = None
    assert (relative is not None) == a.is_relative_to(b)
    return row("pair", first, second, str(a / second), a == b, a in b.parents, b.is_relative_to(a), relative is not None,
               relative or [])
