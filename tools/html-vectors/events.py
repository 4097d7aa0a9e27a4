"""Vectors of `html.parser.HTMLParser(convert_charrefs=True)` and `html.unescape`.

A file has one record a line, its fields separated by tabs; in a field, "\\{HEX}" stands for a control character or a
backslash. events.txt: the input, the number of events that `feed` alone gives, and the events that `feed` and `close`
give: S start tag, A attribute, V value of the attribute before it, E end tag, T text. departures.txt holds, in the same
form, what the scanner gives on purpose where CPython gives something else: made by CPython's parser with two of its
rules amended, see `Amended`. titles.txt: the input and its title. resources.txt: the input, and kind and address of each
resource. unescape.txt: the input, its `unescape`, and its decoding as an attribute's value.
"""

import html
import html.parser
import random
import re
from html.entities import html5

SEED = 20260317


class Recorder(html.parser.HTMLParser):
    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.events = []

    def handle_starttag(self, tag, attrs):
        self.events.append(("S", tag))
        for name, value in attrs:
            self.events.append(("A", name))
            if value is not None:
                self.events.append(("V", value))

    def handle_endtag(self, tag):
        self.events.append(("E", tag))

    def handle_data(self, data):
        self.events.append(("T", data))


class Amended(Recorder):
    """CPython's parser with the two rules in which the scanner departs from it.

    "<!-->" and "<!--->" end at once, also where a later "-->" follows; and a quoted value that is never closed runs to
    the end of the input, where CPython's expressions try the tag again without it.
    """

    def parse_comment(self, i, report=True):
        abrupt = html.parser.commentabruptclose.match(self.rawdata, i + 4)
        return abrupt.end() if abrupt else super().parse_comment(i, report)

    def goahead(self, end):
        module = html.parser
        kept = module.locatetagend, module.attrfind_tolerant
        module.locatetagend, module.attrfind_tolerant = (
            re.compile(
                expression.pattern.replace("'[^']*'", r"'[^']*(?:'|\Z)").replace('"[^"]*"', r'"[^"]*(?:"|\Z)'),
                re.VERBOSE,
            )
            for expression in kept
        )
        try:
            super().goahead(end)
        finally:
            module.locatetagend, module.attrfind_tolerant = kept


def run(parser, text):
    """The events of `feed` and `close`, and how many of them `feed` gave."""
    parser.feed(text)
    fed = len(parser.events)
    parser.close()
    whole = type(parser)()
    whole.rawdata = text
    whole.goahead(1)
    assert whole.events == parser.events, text
    return fed, parser.events


def title(text):
    parser = Recorder()
    parser.feed(text)
    answer, inside = "", False
    for kind, value in parser.events:
        if kind in "SE" and value == "title":
            inside = kind == "S"
        elif kind == "T" and inside:
            answer += value
    return answer


PASSIVE = ("script", "template", "noscript", "textarea")


class Resources(html.parser.HTMLParser):
    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.found, self.depth, self.count = [], 0, 0

    def handle_starttag(self, tag, attrs):
        self.count += 1
        if self.count > 4096:
            return
        if tag in PASSIVE:
            self.depth += 1
        first = dict(reversed(attrs))
        if self.depth:
            return
        if tag == "img" and first.get("src"):
            self.found += ["image", first["src"]]
        if tag == "link" and first.get("href") and "stylesheet" in (first.get("rel") or "").lower().split():
            self.found += ["css", first["href"]]

    def handle_endtag(self, tag):
        if tag in PASSIVE:
            self.depth = max(0, self.depth - 1)


def resources(text):
    parser = Resources()
    parser.feed(text)
    parser.close()
    return parser.found


# Inputs.

CHOSEN = """\
<title>A &amp; B</title>
<TITLE>x</TITLE>
<title>a<b>c</title>
<title>a</title><title>b</title>
<title/>x</title>
<title>unclosed
<title>a</title
<title>a</title x="y>
<title>a</titlex></title>
<title>a</ title></title >b
<title>&amp;&lt</title>
<svg><title>one</title></svg><title>two &notit; three</title>
<textarea>&amp;<p></textarea>&amp;
<plaintext>&amp;<p></plaintext>
<p>a<br/>b<br />c<br / >d</p>
<style/>a<b>c</style>
<script>if (a < b && c > d) { x = "</scr" + "ipt>"; }</script>t
<script>a</SCRIPT/x>b
<script>a</script\x0bb></script>
<script>unclosed &amp; raw
<xmp>&lt;</xmp><iframe>&lt;</iframe><noembed>&lt;</noembed><noframes>&lt;</noframes>
<!-->a<p>
<!--->a<p>
<!---->a<p>
<!----!>a<p>
<!-- x --!>a
<!-- x -- >a-->b
<!-- unclosed
<!-- unclosed --
<!-x>a
<!>a
<!DOCTYPE html>a
<!doctype html
<!DOCTYPE>a
<![CDATA[ a ]] > b ]]>c
<![CDATA[ unclosed > b
<![cdata[ x > y ]]>c
<?php echo "<p>"; ?>x
<?xml?>a
<?
<?>a
</>a
</ p>a
</1>a
</p x="1>2">a
</p/>a
</P>
</p
</
<
<<
<<p>
< p>
<1>
a < b
a<
a </
a <p
a <!
a <!-
a <!--
<a b>
<a b=c d='e' f="g" h = i>
<a b=c/>
<a b="c"/>
<a b="c"d='e'f>
<a b=>
<a b= >
<a b=""c=''>
<a b='c"d' e="f'g">
<a =b>
<a ==b>
<a b==c>
<a b=c=d>
<a "b">
<a 'b' c>
<a b="c>d" e>
<a b="c
<a b='c
<a b=c
<a b=
<a b
<a/b/c/>
<a//>
<a / b>
<a/b=c>
<a b / = c>
<a b = / c>
<a\tb{LF}c\rd\fe>
<a\x0bb c\x0bd>
<a\x00b c\x00d=\x00>
<a b&amp;=c&amp;d>
<a href="?x=1&copy=2&amp;y=3&lt;&ltx&#65;&notit;&not;">
<a href=?x&y=&gt;>
<a href="&notin;&notin&notinx">
<ÉCOLE ÀB=ÇD>x</ÉCOLE>
<aΣ bΣ=ΟΔΟΣ>x</aΣ>
<iİ İ=İ>
<scr\u0130pt>a<b></script>
<K a>
<a\u2028b c\u00a0d=e\u3000f>
a&amp
a&am
a&
a &amp b
a&#
a&#6
a&#x
a&;b
a&b c
a&012345678901234567890123456789012
a&0123456789012345678901234567890123
a&01234567890123456789012345678901234
&notin; &notit; &notit &not &copy=2 &#128; &#xD800; &#1; &#x41 &#65x
漢字 &amp; 😀<p>한국어</p>
<p class="a b" id=c data-x='1'>t</p><img src="a.png" alt=""><hr>
<ul><li>one<li>two</ul>
<table><tr><td>1<td>2</table>
"""

TOKENS = (
    "< > / = \" ' a b p ! - -- --> --!> <!-- <!--> <!---> ? & ; # &amp; &lt &notit; &#65; &#x41 &copy= x= y=' z=\" "
    "<a <p> </p> </ </a <br/> <title> </title> <script> </script> <style> </style > <textarea> </textarea> "
    "<plaintext> <![CDATA[ ]]> <!DOCTYPE <? <img\tsrc=a> </scr </SCRIPT é Σ İ 漢 😀"
).split(" ") + [" ", "\n", "\t", "\f", "\r", "\x0b", "\x00", "\u00a0"]

UNITS = "<>/!-?=\"' &;#aT\n"

PAGE = """<!DOCTYPE html>
<html lang="en"><head><meta charset=utf-8><title>Plan &ndash; draft &amp; notes</title>
<link rel="preload StyleSheet" href="style.css?a=1&amp;b=2"><style>p > a { color: "<red>" }</style>
<script type="module">for (let i = 0; i < 3 && ok; i++) document.write("<p>" + i + "<\\/p>");</script></head>
<body class='wide dark' data-x=1><!-- a comment --><h1 id="top">Plan</h1>
<p>One &lt; two, caf&eacute; &#8212; &#x1F600;<br/>and <a href="/a?b=1&copy=2" title='"q"'>a link</a>.</p>
<img src=one.png alt="" /><textarea name=t>a <b> &amp; c</textarea><noscript><img src="no.png"></noscript>
<ul><li>Erste</li><li>둘째</ul><input disabled value=""></body></html>
"""

MUTATIONS = "<>/=\"'&;!-? \nxT"


def mutated(generator, page):
    text = page
    for _ in range(generator.randint(1, 6)):
        at = generator.randrange(len(text))
        kind = generator.randrange(4)
        if kind == 0:
            text = text[:at] + text[at + 1 :]
        elif kind == 1:
            text = text[:at] + generator.choice(MUTATIONS) + text[at:]
        elif kind == 2:
            text = text[:at] + text[at + generator.randint(1, 40) :]
        else:
            text = text[: at + 1] if generator.randrange(8) == 0 else text[at:] + text[:at]
        if not text:
            return page
    return text


def markups():
    generator = random.Random(SEED)
    chosen = [line.replace("{LF}", "\n") for line in CHOSEN.split("\n") if line]
    yield from chosen
    yield PAGE
    yield "".join(chosen)
    for first in TOKENS:
        for second in TOKENS:
            yield first + second
    for _ in range(5000):
        yield "".join(generator.choices(TOKENS, k=generator.randint(3, 12)))
    for _ in range(3000):
        yield "<" + "".join(generator.choices(UNITS, k=generator.randint(2, 14)))
    for _ in range(250):
        yield mutated(generator, PAGE)


def references():
    generator = random.Random(SEED + 1)
    names = list(html5)
    for name in names:
        yield f"&{name}"
    for name in names:
        if not name.endswith(";"):
            for follower in ["=", "a", "Z", "0", "-", "é", " ", "<", "&", "#", "\r", "\x0b", ";;", "=;", "x;"]:
                yield f"&{name}{follower}"
    for number in [*range(0x120), 0x10FFFE, 0x10FFFF, 0x110000, 0xD7FF, 0xD800, 0xDFFF, 0xE000, 0xFDCF, 0xFDD0, 0xFDEF]:
        yield f"&#{number};"
    for number in [0xFDF0, 0xFFFD, 0xFFFE, 0xFFFF, 0x10000, 0x1FFFD, 0x1FFFE, 2**31, 2**32, 2**32 + 65, 2**64 + 65]:
        yield f"&#{number}&#x{number:x}&#X{number:X};"
    yield from ["&#", "&#;", "&#x;", "&#xg;", "&#-1;", "&#+1;", "&# 65;", "&#٣;", "&#x٣;", "&#65;;", "&#65a", "&#x41g"]
    yield from ["&#65=", "&#65", "&", "&&", "&&amp;", "&amp;amp;", "&amp;#65;", "&;", "& amp;", "&amp ;", "&é;", "a"]
    yield from ["&" + "a" * count + end for count in (30, 31, 32, 33, 34, 70) for end in ("", ";", "&lt;")]
    yield from ["&lt" + "é" * count + end for count in (28, 29, 30, 31, 32) for end in ("", ";", "lt;")]
    pieces = ["&", "&#", "&#x", ";", "=", "#", " ", "<", "-", "é", "漢", "0", "a", "x", "65", "41", "amp", "lt", "GT", "not"]
    for _ in range(6000):
        words = pieces + generator.sample(names, 6)
        yield "".join(generator.choices(words, k=generator.randint(2, 9)))
    for _ in range(2000):
        name = generator.choice(names).rstrip(";")
        cut = name[: generator.randint(1, len(name))]
        yield "&" + cut + "".join(generator.choices("ab;=&#1 é", k=generator.randint(0, 4)))


def pages():
    """Inputs for titles and resources."""
    generator = random.Random(SEED + 2)
    pieces = [
        "<title>", "</title>", "<title/>", "</title", "<TITLE>", "</b>", "<b>", "&amp;", "&lt", " x ", "<!--", "-->", "é",
        "<script>", "</script>", "<svg>", "</svg>", "<title a='", "'>", "<textarea>", "</textarea>",
    ]  # fmt: skip
    for _ in range(1500):
        yield "".join(generator.choices(pieces, k=generator.randint(2, 10)))
    pieces = [
        "<img src=a.png>", "<img src='b&amp;c'>", "<IMG SRC=d/>", "<img src>", "<img src=''>", "<img src=e src=f>",
        "<img src src=g>", "<img alt=h>", "<link rel=stylesheet href=i>", "<link REL='a StyleSheet' href=j>",
        "<link rel=icon href=k>", "<link rel=stylesheet>", "<link rel=stylesheets href=l>", "<link href=m rel>",
        "<link rel='x\u2003stylesheet\u2003y' href=n>", "<link rel='x\u200bstylesheet' href=o>",
        "<link rel=&#115;tylesheet href=p>",
        "<script>", "</script>", "<template>", "</template>", "<noscript>", "</noscript>", "<textarea>", "</textarea>",
        "<template/>", "<script/>", "<noscript/>", "<textarea/>", "<p>", "</p>", "<!--", "-->",
    ]  # fmt: skip
    for _ in range(1500):
        yield "".join(generator.choices(pieces, k=generator.randint(2, 9)))
    generator = random.Random(SEED + 3)
    for _ in range(150):
        yield mutated(generator, PAGE)


def field(text):
    return re.sub(r"[\x00-\x1f\x7f-\x9f\\\u2028\u2029]", lambda match: f"\\{{{ord(match[0]):X}}}", text)


def lines(records):
    return "".join("\t".join(field(part) for part in record) + "\n" for record in records)


def files():
    events, departures, seen = [], [], set()
    for text in markups():
        if not text or text in seen:
            continue
        seen.add(text)
        plain, amended = run(Recorder(), text), run(Amended(), text)
        fed, found = amended
        record = (text, str(fed), *(kind + value for kind, value in found))
        (events if plain == amended else departures).append(record)

    def undisputed(text):
        return run(Recorder(), text) == run(Amended(), text)

    inputs = [text for text in dict.fromkeys(pages()) if undisputed(text)]
    titles = [(text, title(text)) for text in inputs]
    found = [(text, *resources(text)) for text in inputs]
    attribute = html.parser._unescape_attrvalue
    return {
        "tests/vectors/html/events.txt": lines(events),
        "tests/vectors/html/departures.txt": lines(departures),
        "tests/vectors/html/titles.txt": lines(record for record in titles if record[1] or "itle" in record[0]),
        "tests/vectors/html/resources.txt": lines(record for record in found if len(record) > 1 or "img" in record[0]),
        "tests/vectors/html/unescape.txt": lines(
            (text, html.unescape(text), attribute(text)) for text in dict.fromkeys(references())
        ),
    }
