# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Subtitle files as they are found, each with one peculiarity and named by it. Expectations are not written here."""

from dataclasses import dataclass
from typing import Optional, Union


@dataclass(frozen=True)
class Sample:
    """One file. In a text, every line feed is written as `ends`; bytes are written as they stand."""

    name: str
    content: Union[str, bytes]
    codec: str = "utf-8"  # Python's name of what the file is written in
    encoding: Optional[str] = "UTF-8"  # what a reader has to name; None leaves it free
    charset: Optional[int] = None  # the font character set the file is read under
    mark: bytes = b""
    ends: str = "\r\n"
    read_as: Optional[str] = None  # where it is rightly read as something else than it was written in


UTF8_MARK = b"\xef\xbb\xbf"
LITTLE_MARK = b"\xff\xfe"
BIG_MARK = b"\xfe\xff"

HARBOUR = """1
00:00:01,000 --> 00:00:03,200
Is the ferry late again?

2
00:00:03,500 --> 00:00:06,000
It is always late.
Café, then — and “one” bun 🥐.

3
00:00:06,250 --> 00:00:08,000
Two buns.
"""

WELL = """1
00:00:01,000 --> 00:00:02,500
Кто бросил ведро в колодец?

2
00:00:03,000 --> 00:00:05,000
Ведро само прыгнуло,
я только смотрел.
"""

TEA = """1
00:00:01,000 --> 00:00:02,500
The kettle is on.

2
00:00:03,000 --> 00:00:04,000
Nobody move
until it sings.

3
00:00:05,000 --> 00:00:06,000
It sings!
"""

WORKSHOP = """1
00:00:01,000 --> 00:00:04,000
Η κιθάρα έσπασε χθες το βράδυ,
όταν χορεύαμε πάνω στο τραπέζι.

2
00:00:04,500 --> 00:00:07,000
Μην ανησυχείς, ο μάστορας
την κολλάει μέχρι το μεσημέρι.

3
00:00:08,000 --> 00:00:10,000
Και ποιος θα πληρώσει;
""".encode()

UNICODE = [
    Sample("utf8-without-bom", HARBOUR),
    Sample("utf8-bom", HARBOUR, mark=UTF8_MARK),
    Sample("utf8-bom-alone", "", mark=UTF8_MARK),
    Sample("utf8-bom-before-time-line", TEA[2:], mark=UTF8_MARK),
    Sample("utf8-two-boms", TEA, mark=UTF8_MARK * 2),
    Sample("utf8-bom-in-the-middle-of-joined-files", TEA + "\n\ufeff" + HARBOUR, mark=UTF8_MARK),
    Sample("utf8-second-bom-before-time-line", TEA + "\n\ufeff" + TEA[2:]),
    Sample("utf8-emoji-first", "1\n00:00:01,000 --> 00:00:02,000\n🎺🎶 [fanfare]\n\n"
           "2\n00:00:02,500 --> 00:00:04,000\nHer ladyship® has arrived 👑\n"),
    Sample("utf8-under-cyrillic-charset", WELL, charset=204),
    Sample("utf16le-bom", HARBOUR, "utf-16-le", "UTF-16LE", mark=LITTLE_MARK),
    Sample("utf16be-bom", HARBOUR, "utf-16-be", "UTF-16BE", mark=BIG_MARK),
    Sample("utf16le-bom-under-greek-charset", WELL, "utf-16-le", "UTF-16LE", charset=161, mark=LITTLE_MARK),
    Sample("utf16be-bom-lf-only", WELL, "utf-16-be", "UTF-16BE", mark=BIG_MARK, ends="\n"),
    Sample("utf16le-no-bom", WELL, "utf-16-le", "UTF-16LE"),
    Sample("utf16be-no-bom", TEA, "utf-16-be", "UTF-16BE"),
    Sample("utf16le-no-bom-cr-only", TEA, "utf-16-le", "UTF-16LE", ends="\r"),
    # The word for "swing" begins with U+0D0A: its two bytes are those of a line end.
    Sample("utf16be-letter-of-line-end-bytes", "1\n00:00:01,000 --> 00:00:02,000\nഊഞ്ഞാൽ എവിടെ?\n\n"
           "2\n00:00:03,000 --> 00:00:04,000\nമാവിൽ ഊഞ്ഞാൽ കെട്ടി.\n", "utf-16-be", "UTF-16BE", mark=BIG_MARK),
    Sample("utf16le-odd-byte-at-end", LITTLE_MARK + TEA.replace("\n", "\r\n").encode("utf-16-le") + b"\x0d",
           "utf-16-le", "UTF-16LE"),
    Sample("utf16le-half-surrogate-pair", LITTLE_MARK + HARBOUR.encode("utf-16-le").replace(b"\x50\xdd", b""),
           "utf-16-le", "UTF-16LE"),
    Sample("stray-bytes-in-utf8", WORKSHOP.replace("βράδυ,".encode(), "βράδυ".encode() + b"\x85,\x96")
           .replace(b"\n\n3", b" \xa0\n\n3")),
    Sample("utf8-bom-with-stray-bytes", b"1\n00:00:01,000 --> 00:00:02,000\nA na\xefve caf\xe9 owner\n\n"
           b"2\n00:00:03,000 --> 00:00:04,000\n\xe2\x80 cut quote, \xc0\xaf overlong,\n\xed\xa0\x80 surrogate\n",
           mark=UTF8_MARK),
    Sample("utf8-cut-inside-last-character", WORKSHOP.rstrip() + " 🎸".encode()[:-1]),
    # Plain ASCII bytes, so it is UTF-8: the escape sequences stay visible and nothing is lost.
    Sample("iso2022jp-japanese", "1\n00:00:01,000 --> 00:00:02,000\n傘を忘れた。\n\n"
           "2\n00:00:03,000 --> 00:00:04,000\nまた雨だ。\n", "iso2022_jp", read_as="utf-8"),
]

LINES = [
    Sample("cr-only", TEA, ends="\r"),
    Sample("lf-only", TEA, ends="\n"),
    Sample("cr-cr-lf", TEA, ends="\r\r\n"),
    Sample("lf-cr", TEA, ends="\n\r"),
    Sample("bad-time-line-after-cr-cr-lf", TEA.replace("05,000", "05.000"), ends="\r\r\n"),
    Sample("mixed-ends", b"1\r\n00:00:01,000 --> 00:00:02,000\nLeft foot,\rright foot.\r\n\n"
           b"2\r00:00:03,000 --> 00:00:04,000\r\r\nAnd turn.\n\r3\n00:00:05,000 --> 00:00:06,000\rBow.\r"),
    Sample("other-line-separators-are-text", "1\n00:00:01,000 --> 00:00:02,000\n"
           "one\u2028two\u2029three\x85four\x0bfive\x0csix\x1eseven\n"),
    Sample("no-newline-at-end", TEA.rstrip()),
    Sample("no-newline-after-last-time-line", "1\n00:00:01,000 --> 00:00:02,000\nHush.\n\n"
           "2\n00:00:03,000 --> 00:00:04,000"),
    Sample("many-blank-lines-at-both-ends", "\n\n\n" + TEA.replace("\n\n", "\n\n\n\n") + "\n\n\n"),
    Sample("blank-line-inside-cue", "1\n00:00:01,000 --> 00:00:04,000\nDear Ruth,\n\nthe goat is well.\n\n\n"
           "Yours, Abel\n\n2\n00:00:05,000 --> 00:00:06,000\nHe forgot the stamp.\n"),
    Sample("blank-line-after-time-line", "1\n00:00:01,000 --> 00:00:02,000\n\nPull!\n\n"
           "2\n00:00:03,000 --> 00:00:04,000\n\nHarder!\n"),
    Sample("blank-line-between-index-and-time", "1\n\n00:00:01,000 --> 00:00:02,000\nSalt?\n\n"
           "2\n\n00:00:03,000 --> 00:00:04,000\nSugar.\n"),
    Sample("blank-separators-hold-spaces", "1\n00:00:01,000 --> 00:00:02,000\nOne sugar?\n   \n"
           "2\n00:00:03,000 --> 00:00:04,000\nThree.\n  \n \n3\n00:00:05,000 --> 00:00:06,000\nYour teeth...\n  "),
    Sample("tabs-in-separator", "1\n00:00:01,000 --> 00:00:02,000\nMind the step.\n\t\n"
           "2\n00:00:03,000 --> 00:00:04,000\nWhat st-\n \t \n\t\t"),
    Sample("no-break-space-in-separator", "1\n00:00:01,000 --> 00:00:02,000\nPlus fort !\n\u00a0\n"
           "2\n00:00:03,000 --> 00:00:04,000\nJe crie déjà.\n\u3000\n"),
    Sample("no-blank-line-between-cues", TEA.replace("\n\n", "\n")),
    Sample("spaces-around-text-are-kept", "1\n00:00:01,000 --> 00:00:02,000\n  Indented,\n\tand tabbed. \n\n"
           "2\n00:00:03,000 --> 00:00:04,000\n\u200bZero width.\u00ad\n"),
    Sample("empty-cues", "1\n00:00:01,000 --> 00:00:02,000\nBefore the silence.\n\n2\n00:00:03,000 --> 00:00:04,000\n\n"
           "3\n00:00:05,000 --> 00:00:06,000\n \n\t\n\n4\n00:00:07,000 --> 00:00:08,000\nAfter it.\n\n"
           "5\n00:00:09,000 --> 00:00:10,000\n"),
    Sample("empty", ""),
    Sample("only-blank-lines", "\n  \n\t\n\n"),
    Sample("only-a-time-line", "00:00:01,000 --> 00:00:02,000\n"),
    Sample("only-time-lines", "00:00:01,000 --> 00:00:02,000\n00:00:03,000 --> 00:00:04,000\n"),
]

INDICES = [
    Sample("index-missing-everywhere", "00:00:01,000 --> 00:00:02,000\nWho rang?\n\n"
           "00:00:03,000 --> 00:00:04,000\nThe wind,\nI think.\n\n"
           "00:00:05,000 --> 00:00:06,000\nThe wind has a hat on.\n"),
    Sample("index-and-blank-line-missing", "00:00:01,000 --> 00:00:02,000\nWho rang?\nAnd why?\n"
           "00:00:03,000 --> 00:00:04,000\nThe wind.\n"
           "00:00:05,000 --> 00:00:06,000\nThe wind has\na hat on.\n"),
    Sample("index-missing-here-and-there", "1\n00:00:01,000 --> 00:00:02,000\nTickets, please.\n\n"
           "00:00:03,000 --> 00:00:04,000\nThe dog ate mine.\n\n3\n00:00:05,000 --> 00:00:06,000\nAnd the dog's?\n"
           "00:00:07,000 --> 00:00:08,000\nHe rides free.\n"),
    Sample("odd-indices", "0\n00:00:01,000 --> 00:00:02,000\nZero.\n\n7\n00:00:03,000 --> 00:00:04,000\nSeven.\n\n"
           "7\n00:00:05,000 --> 00:00:06,000\nSeven again.\n\n7.5\n00:00:07,000 --> 00:00:08,000\nAnd a half.\n\n"
           "#12:\n00:00:09,000 --> 00:00:10,000\nWith a sign.\n\n9999\n00:00:11,000 --> 00:00:12,000\n"
           "Subtitles by nobody in particular\n"),
    Sample("number-as-dialogue", "1\n00:00:01,000 --> 00:00:02,000\nHow old is she?\n\n"
           "2\n00:00:03,000 --> 00:00:04,000\n42\n\n3\n00:00:05,000 --> 00:00:06,000\nBus\n19\n\n7\n\n"
           "4\n00:00:07,000 --> 00:00:08,000\n2026\n"),
    Sample("number-as-dialogue-without-indices", "00:00:01,000 --> 00:00:02,000\n3\n\n"
           "00:00:03,000 --> 00:00:04,000\n2\n00:00:05,000 --> 00:00:06,000\n1\n"),
    Sample("text-before-first-time", "Translated on a night train\nby two tired people\n\n"
           "1\n00:00:01,000 --> 00:00:02,000\nAll aboard!\n"),
    Sample("text-instead-of-first-index", "Opening song\n00:00:01,000 --> 00:00:02,000\nAll aboard!\n"),
]


def timed(first: str, second: str = "00:00:05,000 --> 00:00:06,000") -> str:
    """Two good cues, then one with the time line `first`, then one with `second`."""
    return ("1\n00:00:01,000 --> 00:00:02,000\nThe clock has stopped.\n\n2\n00:00:02,500 --> 00:00:03,000\n"
            f"Which one?\n\n3\n{first}\nAll of them,\nsir.\n\n4\n{second}\nThen we are not late.\n")


GOOD_TIMES = [
    Sample("comma-without-digits", timed("00:00:03, --> 00:00:04,", "00:00:05,x --> 00:00:06,-5")),
    Sample("one-digit-milliseconds", timed("00:00:03,5 --> 00:00:04,05", "00:00:05,50 --> 00:00:06,005")),
    Sample("long-fraction", timed("00:04:09,0999999999999 --> 00:04:10,12345678901234567890123456789012345678901",
                                  "00:59:59,9996 --> 23:59:59,99951")),
    # Half a millisecond rounds up; as a binary fraction, 4.0005 less its 4 would fall just short of the half.
    Sample("half-milliseconds", timed("00:00:04,0005 --> 00:00:05,0004999", "00:00:08,4325 --> 00:00:09,9995")),
    Sample("one-digit-hours", timed("0:00:03,000 --> 1:00:04,000")),
    Sample("one-digit-everywhere", timed("0:0:3,5 --> 0:1:4,25", "0:2:5,0 --> 1:2:3,4")),
    Sample("coordinates-after-times", timed("00:00:03,000 --> 00:00:04,000 X1:100 X2:540 Y1:400 Y2:460",
                                            "00:00:05,000 --> 00:00:06,000  X1:0, X2:9, Y1:2, Y2:3")),
    Sample("blanks-around-comma", timed("\t00:00:03 ,500  -->\t00:00:04, 250 ")),
    Sample("no-blanks-around-arrow", timed("00:00:03,000-->00:00:04,000")),
    Sample("two-arrows-in-a-line", timed("00:00:03,000 --> 00:00:04,000 --> 00:00:09,000")),
    Sample("arrow-with-three-dashes", timed("00:00:03,250 ---> 00:00:04,000")),
    Sample("no-break-space-before-arrow", timed("00:00:03,000\u00a0--> 00:00:04,000\u00a0")),
    Sample("delete-characters-after-times", timed("00:00:03,000\x7f --> 00:00:04,000\x7f")),
    Sample("end-before-start", timed("00:00:04,000 --> 00:00:03,000", "00:00:05,000 --> 00:00:05,000")),
    Sample("overlapping", timed("00:00:02,750 --> 00:00:05,500", "00:00:02,750 --> 00:00:05,500")),
    Sample("out-of-order", timed("00:10:00,000 --> 00:10:02,000", "00:00:00,100 --> 00:00:00,900")),
    Sample("last-second-of-the-day", timed("23:59:59,000 --> 23:59:59,999")),
]

BAD_TIMES = [
    Sample("dot-before-milliseconds", TEA.replace(",", ".")),
    Sample("dot-before-milliseconds-of-third-cue", timed("00:00:03.000 --> 00:00:04.000")),
    Sample("dot-in-the-end-time-only", timed("00:00:03,000 --> 00:00:04.000")),
    Sample("colon-before-milliseconds", timed("00:00:03:000 --> 00:00:04:000")),
    Sample("arabic-comma-before-milliseconds", timed("00:00:03،000 --> 00:00:04،000")),
    Sample("inverted-mark-before-milliseconds", timed("00:00:03¡000 --> 00:00:04¡000")),
    Sample("no-milliseconds", timed("00:00:03 --> 00:00:04")),
    Sample("no-milliseconds-but-coordinates", timed("00:00:03 --> 00:00:04 X1:1, X2:2")),
    Sample("hours-absent", timed("00:03,000 --> 00:04,000")),
    Sample("hours-above-23", timed("23:59:58,000 --> 24:00:01,000")),
    Sample("three-digit-hours", timed("000:00:03,000 --> 000:00:04,000")),
    Sample("minutes-above-59", timed("00:60:00,000 --> 00:61:00,000")),
    Sample("seconds-above-59", timed("00:00:59,000 --> 00:00:60,000")),
    Sample("frames-as-fourth-part", timed("00:00:03:12,0 --> 00:00:04:00,0")),
    Sample("negative-time", timed("-00:00:03,000 --> 00:00:04,000")),
    Sample("plus-sign-in-time", timed("00:00:+3,000 --> 00:00:04,000")),
    Sample("blanks-inside-time", timed("00: 00: 03,000 --> 00: 00: 04,000")),
    Sample("letters-in-time", timed("00:00:O3,000 --> 00:00:04,000")),
    Sample("arabic-digits-in-time", timed("٠٠:٠٠:٠٣,٠٠٠ --> ٠٠:٠٠:٠٤,٠٠٠")),
    Sample("empty-end-time", timed("00:00:03,000 -->")),
    Sample("arrow-alone", timed("-->")),
    Sample("nbsp-in-time-line", timed("00:00:03,000\u00a0-->\u00a000:00:04,000")),
    Sample("zero-width-space-in-time-line", timed("\u200b00:00:03,000 --> 00:00:04,000")),
    Sample("delete-character-in-time-line", timed("00:00:03,000 --> \x7f00:00:04,000")),
    Sample("arrow-with-two-heads", timed("00:00:03,000 -->> 00:00:04,000")),
    Sample("arrow-in-dialogue", timed("00:00:03,000 --> 00:00:04,000\nExit here, quick --> left")),
    # These arrows make no time line, so all of it is text of the cue before.
    Sample("em-dash-arrow", timed("00:00:03,000 —> 00:00:04,000")),
    Sample("en-dash-arrow", timed("00:00:03,000 –> 00:00:04,000")),
    Sample("short-arrow", timed("00:00:03,000 -> 00:00:04,000")),
    Sample("broken-arrow", timed("00:00:03,000 -- > 00:00:04,000", "00:00:05,000 - -> 00:00:06,000")),
    Sample("arrow-head-alone", timed("00:00:03,000 > 00:00:04,000")),
    Sample("arrow-as-one-character", timed("00:00:03,000 → 00:00:04,000")),
]

TEXTS = [
    Sample("override-tags", timed("00:00:03,000 --> 00:00:04,000\n{\\an8}Up here!\n{\\pos(320,40)\\fad(200,0)}And here",
                                  "00:00:05,000 --> 00:00:06,000\n\\{{}\\an8\\\n{\\i1 never closed\n{}")),
    Sample("nested-and-unclosed-tags", timed(
        "00:00:03,000 --> 00:00:04,000\n<b><i>Both</b></i>, <u>and\n<FONT COLOR=red>unquoted",
        "00:00:05,000 --> 00:00:06,000\n</i></i>< b >\n<font color=\"#00ff00\" face='Arial'><I></I></font>\n<")),
    Sample("entities", timed("00:00:03,000 --> 00:00:04,000\nFish &amp; chips &lt;hot&gt;&nbsp;&apos;now&apos;",
                             "00:00:05,000 --> 00:00:06,000\nFish &amp;amp; chips & peas, 3 < 4 &#233; &bogus;")),
    Sample("nul-bytes", timed("00:00:03,000\0 --> 00:00:04,000\nWe lost\0 something\0\0\n\0",
                              "00:00:05,000 --> 00:00:06,000\0\n\0and found it.")),
    Sample("nul-byte-in-time", timed("00:00:03\0,000 --> 00:00:04,000")),
    Sample("all-nul", b"\0" * 64),
    Sample("delete-and-control-characters-in-text", timed(
        "00:00:03,000 --> 00:00:04,000\nBell\x07, back\x08, DEL\x7f\x1b[0m")),
    Sample("rtl-punctuation-in-front", "1\n00:00:01,000 --> 00:00:02,000\n?מי שתה את הקפה שלי\n\n"
           "2\n00:00:03,000 --> 00:00:04,000\n-.החתול\n-!אין לנו חתול\n\n"
           "3\n00:00:05,000 --> 00:00:06,000\n\u202b.לכן הוא ברח\u202c\u200f\n"),
    Sample("very-long-line", timed("00:00:03,000 --> 00:00:04,000\n" + "and so on, " * 400)),
]

FOREIGN = [
    Sample("html-named-srt", "<!DOCTYPE html>\n<html>\n<head><title>404</title></head>\n<body>\n"
           "<!-- error page -->\n<h1>No such file</h1>\n</body>\n</html>\n"),
    Sample("html-without-comment-named-srt", "<html><body>\n<h1>Please sign in</h1>\n\n</body></html>\n", ends="\n"),
    Sample("webvtt-named-srt", "WEBVTT\n\nNOTE kitchen scene\n\n00:01.000 --> 00:02.000 align:start\nIs it burning?\n\n"
           "00:00:03.000 --> 00:00:04.000\n<v Cook>It is meant to.\n", ends="\n"),
    Sample("ass-named-srt", "[Script Info]\nTitle: Rain\nScriptType: v4.00+\n\n[V4+ Styles]\nFormat: Name, Fontname\n"
           "Style: Default,Sans\n\n[Events]\nFormat: Layer, Start, End, Text\n"
           "Dialogue: 0,0:00:01.00,0:00:02.00,It rains.\n"),
    Sample("ass-header-before-cues",
           "[Script Info]\nTitle: Rain\n\n[V4+ Styles]\nStyle: Default,Sans\n\n[Events]\n\n" + TEA),
    Sample("pdf-named-srt", b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n1 0 obj\n<</Length 9>>\n"
           b"stream\nx\x9c\x03\0\x98\0\xff\xff\x01\nendstream\nendobj\n%%EOF\n", "cp1251", "WINDOWS-1251", charset=204),
]

SAMPLES = UNICODE + LINES + INDICES + GOOD_TIMES + BAD_TIMES + TEXTS + FOREIGN
