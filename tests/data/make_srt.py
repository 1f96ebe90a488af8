#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Writes the subtitle files of tests/data/srt and, beside each, what reading it has to give.

The reading here is a second, plain implementation of the reader's rules. It is told each file's encoding and works on
the decoded text; finding the encoding is the tested reader's own affair. Running the script twice changes nothing.
"""

import codecs
import json
import re
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent / "srt"
SOURCE = FOLDER / "source"
sys.dont_write_bytecode = True
sys.path.insert(0, str(SOURCE))

from malformed import SAMPLES, Sample  # noqa: E402  (found through the path above)

# Language, codec and the encoding that has to be found from the dialogue alone. None where the detector names a
# sibling page in which this dialogue reads the same.
DETECTED = [
    ("cp1250-czech", "czech", "cp1250", "WINDOWS-1250"),
    ("cp1250-polish", "polish", "cp1250", "WINDOWS-1250"),
    ("cp1250-hungarian", "hungarian", "cp1250", None),
    ("iso8859-2-polish", "polish", "iso8859_2", "ISO-8859-2"),
    ("cp1251-russian", "russian", "cp1251", "WINDOWS-1251"),
    ("koi8r-russian", "russian", "koi8_r", "KOI8-R"),
    ("iso8859-5-russian", "russian", "iso8859_5", "ISO-8859-5"),
    ("cp1252-french", "french", "cp1252", "WINDOWS-1252"),
    ("cp1252-german", "german", "cp1252", "WINDOWS-1252"),
    ("cp1253-greek", "greek", "cp1253", "WINDOWS-1253"),
    ("iso8859-7-greek", "greek", "iso8859_7", "ISO-8859-7"),
    ("cp1254-turkish", "turkish", "cp1254", "WINDOWS-1254"),
    ("cp1255-hebrew", "hebrew", "cp1255", "WINDOWS-1255"),
    ("cp1256-arabic", "arabic", "cp1256", "WINDOWS-1256"),
    ("cp1257-lithuanian", "lithuanian", "cp1257", None),
    ("cp932-japanese", "japanese", "cp932", "CP932"),
    ("cp949-korean", "korean", "cp949", "CP949"),
    ("cp874-thai", "thai", "cp874", "CP874"),
    ("gbk-chinese", "chinese_simplified", "gbk", "GB18030"),
    ("big5-chinese", "chinese_traditional", "big5", "BIG5"),
]

# Too short for any detector: the character set of the track's font has to decide. The last line is what only the named
# page, or only careful decoding, gets right.
CHOSEN = [
    ("cp932-japanese-short", "japanese", "cp932", "CP932", 128, "ソ連の表、十の噂、能面㈱～ｶﾅ"),
    ("cp949-korean-short", "korean", "cp949", "CP949", 129, "뷁, 펲시콜라와 똠방각하"),
    ("gb18030-chinese-short", "chinese_simplified", "gb18030", "GB18030", 134, "四字节：㐀𠮷🐎€"),
    ("big5-chinese-short", "chinese_traditional", "big5", "BIG5", 136, "許功蓋的餐"),
    ("cp1253-greek-short", "greek", "cp1253", "WINDOWS-1253", 161, "Άρα €5 – “ναι”"),
    ("cp1254-turkish-short", "turkish", "cp1254", "WINDOWS-1254", 162, "“Işık” – ğüşöçİ…"),
    ("cp1255-hebrew-short", "hebrew", "cp1255", "WINDOWS-1255", 177, "₪5 – כן"),
    ("cp1256-arabic-short", "arabic", "cp1256", "WINDOWS-1256", 178, "پنج گل، چه خوب؟"),
    ("cp1257-lithuanian-short", "lithuanian", "cp1257", "WINDOWS-1257", 186, "„Ąžuolas“ – ėęįų…"),
    ("cp1251-ukrainian-short", "russian", "cp1251", "WINDOWS-1251", 204, "Її ґанок – “є”…"),
    ("cp874-thai-short", "thai", "cp874", "CP874", 222, "“กาแฟ” – ๑๒๓…"),
    ("cp1250-czech-short", "czech", "cp1250", "WINDOWS-1250", 238, "„Šťáva“ – ŽĽ…"),
]

TIME_OF_DAY = re.compile(r"([01]?[0-9]|2[0-3]):([0-5]?[0-9]):([0-5]?[0-9])")


def milliseconds(side):
    """The time that one side of a time line tells; None when it tells none."""
    before, comma, after = side.strip(" \t").partition(",")
    parts = TIME_OF_DAY.fullmatch(before.strip(" \t"))
    if not comma or not parts:
        return None
    hours, minutes, seconds = (int(part) for part in parts.groups())
    digits = re.match("[0-9]*", after.strip(" \t")).group()
    # Whole numbers only, so that a half is a half: add five to the fourth digit and cut.
    ten_thousandths = int((digits + "0000")[:4])
    return (hours * 3600 + minutes * 60 + seconds) * 1000 + (ten_thousandths + 5) // 10


def time_code(value):
    seconds, rest = divmod(value, 1000)
    return f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02},{rest:03}"


class Reading:
    """What a reader holds while it goes through the lines, and the cues it has found."""

    def __init__(self, lines):
        self.cues = []
        self.problem = None
        self.show = self.hide = 0
        self.collected = ""
        current = ""
        for number, line in enumerate(lines, 1):
            previous, current = current, line
            if "-->" not in line:
                # One line behind, so that the line before a time line, the index, is never collected.
                self.collect(previous)
                continue
            left, _, right = line.partition("-->")
            show, hide = milliseconds(left), milliseconds(right)
            if show is None or hide is None:
                self.problem = {"line": number}
                return
            self.add_cue()
            current = ""
            self.show, self.hide = show, hide
        self.collect(current)
        self.add_cue()

    def collect(self, line):
        if line.strip(" \t"):
            self.collected += line + "\r\n"

    def add_cue(self):
        text, self.collected = self.collected[:-2], ""
        if text:
            self.cues.append({"number": len(self.cues) + 1, "show": time_code(self.show), "hide": time_code(self.hide),
                              "text": text, "tag": ""})


def one_replacement_a_byte(error):
    """Goes on behind the first byte that means nothing; in UTF-16, behind the unit it belongs to."""
    wide = error.encoding.startswith("utf-16")
    bad = min(2 if wide else 1, len(error.object) - error.start)
    one_replacement_a_byte.count += bad
    return "\ufffd" * bad, error.start + bad


codecs.register_error("count", one_replacement_a_byte)

MARKS = {"utf-8": b"\xef\xbb\xbf", "utf-16-le": b"\xff\xfe", "utf-16-be": b"\xfe\xff"}


def decoded(data, codec):
    one_replacement_a_byte.count = 0
    text = data.removeprefix(MARKS.get(codec, b"")).decode(codec, "count")
    return text, one_replacement_a_byte.count


def expectation(sample, data):
    text, undecodable = decoded(data, sample.read_as or sample.codec)
    lines = re.split("\r\n|\r|\n", text)
    if lines[-1] == "":
        lines.pop()
    reading = Reading(lines)
    found = {"encoding": sample.encoding}
    if sample.charset is not None:
        found["charset"] = sample.charset
    return found | {"undecodable": undecodable, "cues": reading.cues, "problem": reading.problem}


def file_bytes(sample):
    if isinstance(sample.content, bytes):
        return sample.mark + sample.content
    return sample.mark + sample.content.replace("\n", sample.ends).encode(sample.codec)


def dialogue(language):
    """The cues of a language's dialogue, each with its lines."""
    return (SOURCE / f"{language}.txt").read_text("utf-8").strip().split("\n\n")


def subtitles(cues, line="{}"):
    """A well-formed file; the time a cue stays grows with its length."""
    blocks = []
    at = 1500
    for number, cue in enumerate(cues, 1):
        until = at + 900 + 40 * len(cue)
        text = "\n".join(line.format(one) for one in cue.split("\n"))
        blocks.append(f"{number}\n{time_code(at)} --> {time_code(until)}\n{text}\n")
        at = until + 120
    return "\n".join(blocks)


def legacy_samples():
    for name, language, codec, encoding in DETECTED:
        yield Sample(name, subtitles(dialogue(language)), codec, encoding)
    for name, language, codec, encoding, charset, last in CHOSEN:
        # No line end behind the last letter: a decoder that looks ahead must still give it out.
        text = subtitles([dialogue(language)[0], last]).rstrip("\n")
        yield Sample(name, text, codec, encoding, charset)

    russian = dialogue("russian")
    tagged = subtitles(russian, '{{\\an8}}<font color="#ffff00" face="Arial">{}</font>')
    yield Sample("cp1251-russian-under-tags", tagged, "cp1251", "WINDOWS-1251")
    yield Sample("cp1251-russian-under-greek-charset", subtitles(russian), "cp1251", "WINDOWS-1253", 161,
                 read_as="cp1253")
    yield Sample("cp1251-bad-time-line", subtitles(russian).replace("5\n00:00:", "5\n00:00.", 1), "cp1251",
                 "WINDOWS-1251")
    # 0x81 with a blank behind it is half a character: the blank is not to be swallowed.
    yield Sample("cp932-cut-character", b"1\r\n00:00:01,000 --> 00:00:02,000\r\n\x8e\x50\x81 \x96\x59\x82\xea\r\n\x82",
                 "cp932", "CP932", 128)


def main():
    samples = SAMPLES + list(legacy_samples())
    names = {sample.name for sample in samples}
    if len(names) != len(samples):
        sys.exit("two samples share a name")
    for stale in [*FOLDER.glob("*.srt"), *FOLDER.glob("*.json")]:
        if stale.stem not in names:
            stale.unlink()
    for sample in samples:
        data = file_bytes(sample)
        (FOLDER / f"{sample.name}.srt").write_bytes(data)
        expected = json.dumps(expectation(sample, data), indent=1, ensure_ascii=False) + "\n"
        (FOLDER / f"{sample.name}.json").write_bytes(expected.encode("utf-8"))


if __name__ == "__main__":
    main()
