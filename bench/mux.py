#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Putting a subtitle stream of 1,500 cues into an AVI of 800 MB, against copying the file and against FFmpeg copying its
streams."""

import pathlib
import struct
import subprocess
import sys
import tempfile

from film import FFMPEG, duration, level, write_film
from measure import compare, report, tell_goal
from read_srt import stamp

BIN = pathlib.Path(__file__).resolve().parent.parent / "build/bin"
CUES = 1500
WIDTH, HEIGHT = 480, 60


def write_bitmap(path):
    """Stripes that take about as long to encode as two lines of text."""
    colours = b"".join(bytes(rgb) + b"\0" for rgb in [(255, 0, 0), (255, 255, 255), (0, 0, 0), (70, 70, 70)])
    row = b"".join(bytes([(x // 3 % 4) << 4 | x // 3 % 4]) for x in range(WIDTH // 2))
    pixels = row * HEIGHT
    offset = 14 + 40 + 16 * 4
    header = struct.pack("<2sIII", b"BM", offset + len(pixels), 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 4, 0, len(pixels), 0, 0, 16, 0)
    path.write_bytes(header + info + colours.ljust(64, b"\0") + pixels)


def write_subtitles(folder, seconds):
    write_bitmap(folder / "cue.bmp")
    lines = ["[HEADER]", "TITLE", "FRAMERATE PAL", "DROPFRAME NO", "CONTRAST    (0 15 15 15)", "COLOR       (0 2 1 3)", "",
             "[PALETTE]", "0 (0, 0, 255)", "1 (255, 255, 255)", "2 (0, 0, 0)", "3 (70, 70, 70)", "", "[LIST]"]
    for i in range(CUES):
        start = int(seconds * 1000 * i / CUES)
        times = " ".join(stamp(time).replace(",", ".") for time in (start, start + 2000))
        lines.append(f"cue.bmp {times} {WIDTH:03} {HEIGHT:03} 120 500")
    listing, subtitles = folder / "list.txt", folder / "cues.xsub"
    listing.write_text("\r\n".join(lines) + "\r\n")
    subprocess.run([BIN / "bmptoxsub.exe", listing, subtitles], check=True, stdout=subprocess.DEVNULL)
    return subtitles


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        film = write_film(folder)
        subtitles = write_subtitles(folder, duration(film))
        out = folder / "out.divx"
        runs = compare({
            "DivXMux.exe": [BIN / "DivXMux.exe", "-v", "()", film, "-a", "#1", "()", film, "-s", "(Subtitle - en;02)",
                            subtitles, "-o", out],
            "DivXMux.exe, sound left out": [BIN / "DivXMux.exe", "-v", "()", film, "-s", "(Subtitle - en;02)", subtitles,
                                            "-o", out],
            "cp": ["cp", film, out],
            "ffmpeg -c copy": [*FFMPEG, "-i", film, "-map", "0", "-c", "copy", "-f", "avi", out],
        }, rounds=11, before=lambda: level(film, out))
        report(f"{film.stat().st_size / 1e6:.0f} MB and {CUES} cues", runs, "DivXMux.exe")
        ours = runs["DivXMux.exe"]
        cp, ffmpeg = (ours.seconds / runs[name].seconds for name in ("cp", "ffmpeg -c copy"))
        tell_goal("mux 800 MB", "at most 1.15 times cp", f"{cp:.2f} times", cp <= 1.15)
        tell_goal("mux 800 MB", "twice as fast as ffmpeg -c copy", f"{1 / ffmpeg:.1f} times", ffmpeg <= 0.5)
        tell_goal("memory of muxing", "at most 48 MiB", f"{ours.memory / 2**20:.1f} MiB", ours.memory <= 48 * 2**20)
    return 0


if __name__ == "__main__":
    sys.exit(main())
