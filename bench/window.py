#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""How long the window takes to start, against an empty window; and how long scrolling, selecting and drawing a clicked cue
take in a list of 20,000 cues. Needs no screen."""

import os
import pathlib
import statistics
import subprocess
import tempfile
import time

from measure import tell_goal
from read_srt import write_subtitles

ROOT = pathlib.Path(__file__).resolve().parent.parent
BENCH = ROOT / "build/bin/window_bench"
ENVIRONMENT = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
ROUNDS = 11


def measured(*arguments):
    """{name: [milliseconds]}"""
    output = subprocess.run([BENCH, *map(str, arguments)], env=ENVIRONMENT, check=True, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, text=True).stdout
    times = {}
    for line in output.splitlines():
        name, _, value = line.rpartition(" ")
        times.setdefault(name, []).append(float(value))
    return times


def main():
    subprocess.run([ROOT / "scripts/build.sh", "release", "window_bench"], check=True)
    starts = {"bare": [], "start": []}
    for _ in range(ROUNDS):
        for mode, times in starts.items():
            with tempfile.TemporaryDirectory() as data:
                extra = [data] if mode == "start" else []
                times += measured(mode, time.monotonic_ns(), *extra)["start"]
    ours, bare = (statistics.median(starts[mode]) for mode in ("start", "bare"))
    print(f"start to usable window: {ours:.0f} ms, {ours / bare:.2f} times an empty window")
    tell_goal("window usable after start", "under 400 ms", f"{ours:.0f} ms", ours < 400)
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder)
        write_subtitles(path / "long.srt", 20_000)
        times = measured("cues", path / "data", ROOT / "samples/harbour.avi", path / "long.srt")
    print("20,000 cues, with the preview on:")
    for name, values in times.items():
        print(f"  {name:<11} {statistics.median(values):7.1f} ms, longest of {len(values)}: {max(values):.1f} ms")
    click = times["click"]
    tell_goal("draw a clicked cue", "under 16 ms", f"{statistics.median(click):.1f} ms, longest {max(click):.1f} ms",
              statistics.median(click) < 16)


if __name__ == "__main__":
    main()
