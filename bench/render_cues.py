#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Drawing and saving 1,500 cues of one or two lines, against a DVD subtitle renderer drawing the same file."""

import itertools
import pathlib
import random
import subprocess
import sys
import tempfile

from measure import compare, report, tell_goal
from read_srt import CLI, stamp

FONT = pathlib.Path("/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf")
WORDS = ("the boat left before dawn and nobody on the pier could tell whether it would return in time for winter so they "
         "stood there waiting until the lamps went out again").split()


def write_cues(path, cues, seconds):
    """Cues of two seconds, spread evenly over `seconds`."""
    chance = random.Random(4)
    with open(path, "w") as file:
        for i in range(cues):
            lines = [" ".join(chance.choices(WORDS, k=chance.randint(3, 7))).capitalize() + "."
                     for _ in range(chance.randint(1, 2))]
            text = "\n".join(lines)
            start = 1000 + int(seconds * 1000 * i / cues)
            file.write(f"{i + 1}\n{stamp(start)} --> {stamp(start + 2000)}\n{text}\n\n")


def write_spumux_job(folder, srt, outline):
    """The other renderer needs its own list, its font in a folder below HOME, and a film for the pictures."""
    (folder / ".spumux").mkdir()
    (folder / ".spumux" / FONT.name).symlink_to(FONT)
    job = folder / "job.xml"
    job.write_text(f'<subpictures format="PAL"><stream><textsub filename="{srt}" characterset="UTF-8" fontsize="29" '
                   f'font="{FONT.name}" horizontal-alignment="center" vertical-alignment="bottom" left-margin="20" '
                   f'right-margin="20" subtitle-fps="25" movie-fps="25" movie-width="720" movie-height="574" '
                   f'outline-color="black" outline-thickness="{outline}"/></stream></subpictures>')
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=black:s=720x576:r=25:d=1", "-f", "lavfi", "-i",
                    "anullsrc=r=48000:d=1", "-target", "pal-dvd", folder / "film.mpg"], check=True)
    return ["env", f"HOME={folder}", "sh", "-c", f"spumux -s0 {job} < {folder}/film.mpg > {folder}/out.mpg"]


def main():
    for outline in (1, 4):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            srt = folder / "film.srt"
            write_cues(srt, 1500, 5400)
            # A new folder for each run: the file system is slow to use space again that was just freed.
            run = itertools.count()
            ours = lambda: [CLI, "render", srt, "--data", folder, "--out", folder / f"out{next(run)}",
                            "--set", f"OutlineWidth0={outline}"]
            runs = compare({"captoria-cli render": ours, "spumux": write_spumux_job(folder, srt, outline)}, rounds=3)
            report(f"1,500 cues, outline {outline}", runs, "captoria-cli render")
            if outline == 1:
                faster = runs["spumux"].seconds / runs["captoria-cli render"].seconds
                tell_goal("draw 1,500 cues, outline 1", "40 times faster than spumux", f"{faster:.0f} times", faster >= 40)
    return 0


if __name__ == "__main__":
    sys.exit(main())
