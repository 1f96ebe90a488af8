#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Reading and listing 100,000 cues, against FFmpeg reading the same file; and whether ten times the cues take ten times
as long."""

import pathlib
import sys
import tempfile

from measure import compare, report, tell_goal

CLI = pathlib.Path(__file__).resolve().parent.parent / "build/bin/captoria-cli"

FFMPEG = ["ffmpeg", "-nostdin", "-v", "error", "-i"]


def stamp(milliseconds):
    seconds, milliseconds = divmod(milliseconds, 1000)
    return f"{seconds // 3600 % 24:02}:{seconds // 60 % 60:02}:{seconds % 60:02},{milliseconds:03}"


def write_subtitles(path, cues):
    with open(path, "w", newline="") as file:
        for i in range(cues):
            start = stamp(i * 800 % 86_000_000)
            end = stamp((i * 800 + 700) % 86_000_000)
            text = f"The line of dialogue with the number {i},\r\nand <i>one</i> more."
            file.write(f"{i + 1}\r\n{start} --> {end}\r\n{text}\r\n\r\n")


def main():
    with tempfile.TemporaryDirectory() as folder:
        small, large = (pathlib.Path(folder) / name for name in ("small.srt", "large.srt"))
        write_subtitles(small, 100_000)
        write_subtitles(large, 1_000_000)
        size = small.stat().st_size
        runs = compare({
            "captoria-cli cues": [CLI, "cues", small],
            "the same, ten times the cues": [CLI, "cues", large],
            "captoria-cli cues --json": [CLI, "cues", small, "--json"],
            "ffmpeg -i x.srt -f null -": [*FFMPEG, small, "-f", "null", "-"],
            "ffmpeg -i x.srt -c:s copy": [*FFMPEG, small, "-map", "0", "-c:s", "copy", "-f", "null", "-"],
        }, rounds=15, statuses={"ffmpeg -i x.srt -f null -": 1})  # it reads all cues, then has no output for them
        report(f"100,000 cues, {size / 2**20:.1f} MiB", runs, "captoria-cli cues")
        ours = runs["captoria-cli cues"]
        print(f"  memory: {ours.memory / size:.1f} times the file")
        faster = runs["ffmpeg -i x.srt -f null -"].seconds / ours.seconds
        tell_goal("read and list 100,000 cues", "5 times faster than ffmpeg", f"{faster:.1f} times", faster >= 5)
        longer = runs["the same, ten times the cues"].seconds / ours.seconds
        tell_goal("1,000,000 cues against 100,000", "linear: 10 times the time", f"{longer:.1f} times", longer <= 12)
    return 0


if __name__ == "__main__":
    sys.exit(main())
