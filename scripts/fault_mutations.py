# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Rows of scripts/faults.py that damage the files that programs read, a little, thousands of times."""

import json
import re
import struct

from fault_tools import MOST_TEXT, ROOT, Row, fresh, tell

AVI_CODES = re.compile(rb"RIFF|LIST|avih|strh|strf|strn|indx|idx1|ix\d\d|dmlh|JUNK|\d\d(?:dc|wb|sb)")
NUMBERS = [0, 1, 2, 3, 7, 8, 0x7F, 0xFF, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFE, 0xFFFFFFFF]
HEAD = 6000  # bytes, with the headers of a small film; half of all damage is done here
MOST_SPLICED = 4096


def place(rng, data):
    """Where to damage `data`: its head, its end, or anywhere."""
    size = max(len(data), 1)
    near = min(size, HEAD)
    return rng.choice([rng.randrange(near), rng.randrange(near), size - 1 - rng.randrange(near), rng.randrange(size)])


def flip_bits(rng, data):
    for _ in range(rng.choice([1, 1, 2, 4, 16])):
        if data:
            data[place(rng, data)] ^= 1 << rng.randrange(8)


def cut_off(rng, data):
    del data[place(rng, data):]


def change_number(rng, data):
    """Changes a number after a four-letter code, mostly the size of a chunk, or four bytes anywhere."""
    codes = [match.start() for match in AVI_CODES.finditer(data, 0, HEAD)]
    if not codes or rng.random() < 0.5:
        start = place(rng, data)
        codes = [match.start() for match in AVI_CODES.finditer(data, start, start + 65536)]
    at = rng.choice(codes) + rng.choice([4, 4, 4, 8, 12, 20, 28, 32]) if codes else place(rng, data)
    number = rng.choice([*NUMBERS, len(data), len(data) - at, rng.randrange(1 << 32)])
    if at + 4 <= len(data):
        struct.pack_into("<I", data, at, number & 0xFFFFFFFF)


def splice(rng, data):
    """Inserts a block, writes it over another, repeats it many times, or removes it."""
    start, to = place(rng, data), place(rng, data)
    block = data[start:start + rng.randrange(1, MOST_SPLICED)]
    how = rng.randrange(4)
    if how == 0:
        data[to:to] = block
    elif how == 1:
        data[to:to + len(block)] = block
    elif how == 2:
        data[to:to] = block * rng.randrange(2, 30)
    else:
        del data[start:start + len(block)]


def change_text(rng, data):
    """Inserts what readers of text stumble over: long numbers, tags, zero bytes, byte-order marks, repeated lines."""
    pieces = [b"<font color=\"#", b"<i><b><u>", b"{\\an8}", b"\0", b"\xff\xfe", b"\xef\xbb\xbf", b" --> ", b"-", b"\r", b"\n\n",
              b"99999999999999999999", b"00:00:00,000 --> 99:59:59,999\n", b"\xe2\x80\xae", b"\xf4\x90\x80\x80", b"|" * 500,
              b"<font size=99999>", b"&#x110000;", b"W" * 3000, b"timestamp: ", b"filepos: ffffffffffffffff", b"palette: "]
    at = place(rng, data)
    how = rng.randrange(4)
    if how < 2:
        data[at:at] = rng.choice(pieces)
    elif how == 2:
        lines = bytes(data).split(b"\n")
        line = rng.randrange(len(lines))
        data[:] = b"\n".join(lines[:line] + [lines[line]] * rng.choice([0, 2, 50]) + lines[line + 1:])
    else:
        digits = [match.start() for match in re.finditer(rb"\d", data)]
        for position in rng.sample(digits, min(3, len(digits))):
            data[position] = rng.choice(b"0123456789-:,x")


BINARY = [flip_bits, flip_bits, cut_off, change_number, change_number, change_number, splice]
TEXT = [change_text, change_text, change_text, flip_bits, splice, cut_off]


def mutated(rng, seed, ways):
    data = bytearray(seed)
    for _ in range(rng.choice([1, 1, 2, 3, 6])):
        rng.choice(ways)(rng, data)
    return bytes(data)


def keep(bench, row, number, files):
    """Saves the files of a finding outside the temporary folder."""
    folder = bench.kept / f"{row.name.split(' ')[0].lower()}-{number}"
    folder.mkdir(parents=True, exist_ok=True)
    for path in files:
        (folder / path.name).write_bytes(path.read_bytes())
    return folder


def judge(bench, row, number, files, what, run, more=True, megabytes=None):
    """Adds a finding if the run broke a rule for all inputs, or if `more` is false."""
    few = run.kilobytes < (megabytes or bench.megabytes) * 1024
    if not (run.status in (0, 1, 2) and run.seconds < bench.seconds and few and more):
        row.check(False, f"{what} of {keep(bench, row, number, files)} {tell(run)}")


def is_json(text):
    try:
        json.loads(text)
    except ValueError:
        return False
    return True


def avi(bench):
    row = Row("AVI files mutated",
              "`info --json`, and for every 20th file `DivXMux.exe` and `convert`: no signal, "
              f"status 0 to 2, within {bench.seconds} s and {bench.megabytes} MB; JSON or a message; "
              "a film only with status 0")
    rng, folder = bench.random("avi"), fresh(bench.folder / "avi")
    seeds = [(bench.films / name).read_bytes() for name in ("harbour.avi", "tiny.avi", "pcm.avi")]
    seeds.append((ROOT / "samples" / "harbour.divx").read_bytes())
    cues, film, made = bench.films / "harbour.en.srt", folder / "film.avi", folder / "film.divx"
    cli, mux = bench.program("captoria-cli"), bench.program("DivXMux.exe")
    for number in range(bench.count(10000, 200)):
        film.write_bytes(mutated(rng, rng.choice(seeds), BINARY))
        row.times += 1
        run = bench.run([cli, "info", film, "--json"])
        judge(bench, row, number, [film], "info", run, more=is_json(run.out) if run.status == 0 else run.err)
        if number % 20:
            continue
        made.unlink(missing_ok=True)
        run = bench.run([mux, "-v", "()", film, "-a", "#1", "()", film, "-o", made])
        judge(bench, row, number, [film], "DivXMux.exe", run, more=made.exists() == (run.status == 0))
        made.unlink(missing_ok=True)
        run = bench.convert(film, folder / "data", "--subtitle", cues)
        judge(bench, row, number, [film], "convert", run, more=made.exists() == (run.status == 0))
    return row


def srt(bench):
    row = Row("SRT files mutated",
              f"`cues --json`: no signal, status 0 to 2, within {bench.seconds} s and "
              f"{2 * bench.megabytes} MB (it searches every font for rare characters); JSON or a message")
    rng, folder = bench.random("srt"), fresh(bench.folder / "srt")
    seeds = [path.read_bytes() for path in sorted(bench.films.glob("*.srt"))]
    seeds += [path.read_bytes() for path in sorted((ROOT / "tests/data/srt").glob("*.srt"))]
    file = folder / "cues.srt"
    for number in range(bench.count(2000, 100)):
        file.write_bytes(mutated(rng, rng.choice(seeds), TEXT))
        row.times += 1
        run = bench.run([bench.program("captoria-cli"), "cues", file, "--json", "--data", folder / "data"])
        # Only the first part of the output is kept, and JSON that was cut is not valid.
        whole = run.status != 0 or len(run.out) >= MOST_TEXT or is_json(run.out)
        judge(bench, row, number, [file], "cues", run, more=whole and (run.status == 0 or run.err),
              megabytes=2 * bench.megabytes)
    return row


def vobsub_pair(bench, folder):
    """The sample's subtitles as a VobSub pair: FFmpeg makes the .sub, and the .idx lists the packs that begin a subtitle."""
    sub = folder / "pair.sub"
    bench.ffmpeg("-i", ROOT / "samples" / "harbour.divx", "-map", "0:s:0", "-c:s", "dvdsub", "-f", "vob", sub)
    lines = ["# VobSub index file, v7", "size: 720x576", "palette: " + ", ".join(["000000", *["ffffff"] * 15]),
             "langidx: 0", "id: en, index: 0"]
    data = sub.read_bytes()
    for at in range(0, len(data), 2048):
        packet = data.find(b"\0\0\1\xbd", at, at + 2048)
        if packet >= 0 and data[packet + 7] & 0x80:
            high, middle, low = struct.unpack(">BHH", data[packet + 9:packet + 14])
            time = (((high >> 1 & 7) << 30) | (middle >> 1 << 15) | low >> 1) // 90
            lines.append(f"timestamp: 00:{time // 60000:02}:{time // 1000 % 60:02}:{time % 1000:03}, filepos: {at:09x}")
    index = folder / "pair.idx"
    index.write_text("\n".join(lines) + "\n")
    return index, sub


def vobsub(bench):
    row = Row("VobSub pairs mutated",
              f"`DivXMux.exe`: no signal, status 0 to 2, within {bench.seconds} s and "
              f"{bench.megabytes} MB; a film only with status 0")
    rng, folder = bench.random("vobsub"), fresh(bench.folder / "vobsub")
    index, sub = vobsub_pair(bench, folder)
    seeds, film, made = (index.read_bytes(), sub.read_bytes()), bench.films / "tiny.avi", folder / "made.divx"
    arguments = [bench.program("DivXMux.exe"), "-v", "()", film, "-s", "(Subtitle - en;02)", index, "-o", made]
    run = bench.run(arguments)
    row.check(run.status == 0, f"the undamaged pair {tell(run)}")
    for number in range(bench.count(500, 50)):
        which = rng.randrange(3)
        index.write_bytes(mutated(rng, seeds[0], TEXT) if which != 1 else seeds[0])
        sub.write_bytes(mutated(rng, seeds[1], BINARY) if which != 0 else seeds[1])
        made.unlink(missing_ok=True)
        row.times += 1
        run = bench.run(arguments)
        judge(bench, row, number, [index, sub], "DivXMux.exe", run, more=made.exists() == (run.status == 0))
    return row


def damaged_texts(rng):
    """Name and content of files with wrong content, for the readers of settings, commands and languages."""
    noise = rng.randbytes(3000)
    return [("random bytes", noise), ("10 MB of noise", rng.randbytes(10 << 20)), ("zero bytes", b"\0" * 100_000),
            ("nothing at all", b""), ("one line of 10 MB", b"x" * (10 << 20)), ("a picture", b"\x89PNG\r\n\x1a\n" + noise),
            ("half of a UTF-16 text", "\ufeffcaption".encode("utf-16-le")[:-1])]


ROWS = [avi, srt, vobsub]
