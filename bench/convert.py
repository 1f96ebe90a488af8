#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""A whole conversion: an AVI of 800 MB and the 1,500 cues of the SubRip file beside it, against copying the film.

The conversions follow each other as for a folder of films. For a minute, ext4 looks at all deleted files for each file that
it creates, so each conversion pays for the deleted bitmaps of the others. With the bitmaps in memory no conversion pays;
that is how fast a first conversion is on a disk."""

import pathlib
import sys
import tempfile

from film import duration, level, write_film
from measure import compare, report, tell_goal
from read_srt import CLI
from render_cues import write_cues

CUES = 1500


def main():
    with tempfile.TemporaryDirectory() as name, tempfile.TemporaryDirectory(dir="/dev/shm") as in_memory:
        folder = pathlib.Path(name)
        film = write_film(folder)
        write_cues(film.with_suffix(".srt"), CUES, duration(film))
        out = film.with_suffix(".divx")
        # The memory is that of the largest process: the program waits for the converter and the muxer.
        convert = [CLI, "convert", film, "--quiet", "--set", "ReplaceDivX=-1", "--data"]
        runs = compare({
            "captoria-cli convert": [*convert, folder],
            "the same, bitmaps in memory": [*convert, in_memory],
            "cp": ["cp", film, out],
        }, before=lambda: level(film, out))
        limit = 2 * runs["cp"].seconds + 1
        report(f"{film.stat().st_size / 1e6:.0f} MB and {CUES} cues", runs, "captoria-cli convert")
        ours = runs["captoria-cli convert"]
        tell_goal("convert 800 MB, 1,500 cues", f"at most twice the time of cp plus a second, here {limit:.3f} s",
                  f"{ours.seconds:.3f} s", ours.seconds <= limit)
        tell_goal("memory of a conversion", "at most 48 MiB", f"{ours.memory / 2**20:.1f} MiB", ours.memory <= 48 * 2**20)
    return 0


if __name__ == "__main__":
    sys.exit(main())
