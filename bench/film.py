# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""A film of 800 MB to measure with. It has small chunks, like two hours of MPEG-4 and MP3."""

import os
import shutil
import subprocess

FFMPEG = ["ffmpeg", "-nostdin", "-v", "error", "-y"]
SIZE = 800_000_000


def write_film(folder):
    part, film = folder / "part.avi", folder / "film.avi"
    subprocess.run([*FFMPEG, "-f", "lavfi", "-i", "testsrc2=s=640x352:r=25:d=60", "-f", "lavfi", "-i", "sine=d=60", "-c:v",
                    "mpeg4", "-b:v", "900k", "-c:a", "libmp3lame", "-b:a", "128k", part], check=True)
    subprocess.run([*FFMPEG, "-stream_loop", "-1", "-i", part, "-map", "0", "-c", "copy", "-fs", str(SIZE), film],
                   check=True)
    return film


def duration(film):
    """In seconds."""
    show = ["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", film]
    return float(subprocess.run(show, check=True, capture_output=True).stdout)


def level(film, out):
    """Call before each run that makes `out` of `film`. Then no run pays for data that an earlier run still has to write to
    the disk, or for memory that a virtual machine has given back and has to get again."""
    out.unlink(missing_ok=True)
    os.sync()
    warm_up = [film.with_name(name) for name in ("first.tmp", "second.tmp")]
    for path in warm_up:
        shutil.copyfile(film, path)
    for path in warm_up:
        path.unlink()
