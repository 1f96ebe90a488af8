#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Single frames of a film of about two hours, against FFmpeg seeking to the same number of frames."""

import pathlib
import statistics
import subprocess
import tempfile
import time

from film import duration, write_film
from measure import tell_goal
from window import ROOT, measured


def ffmpeg_frame(film, seconds):
    begin = time.perf_counter()
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-ss", f"{seconds:.3f}", "-i", film, "-map", "0:v", "-frames:v",
                    "1", "-f", "null", "-"], check=True)
    return 1000 * (time.perf_counter() - begin)


def main():
    subprocess.run([ROOT / "scripts/build.sh", "release", "window_bench"], check=True)
    with tempfile.TemporaryDirectory() as folder:
        film = write_film(pathlib.Path(folder))
        length = duration(film)
        ours = measured("frames", film)["frame"]
        theirs = [ffmpeg_frame(film, i * 0.618 % 1 * length) for i in range(1, 31)]
    print(f"frames of a film of {length / 60:.0f} minutes")
    for name, times in (("ours", ours), ("ffmpeg -ss", theirs)):
        print(f"  {name:<11} {statistics.median(times):7.1f} ms, longest of {len(times)}: {max(times):.1f} ms")
    tell_goal("any frame of a two-hour film", "under 150 ms", f"{statistics.median(ours):.1f} ms, longest {max(ours):.1f} ms",
              max(ours) < 150)


if __name__ == "__main__":
    main()
