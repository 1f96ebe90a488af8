# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Rows of scripts/faults.py that disturb a conversion from outside: kills, full disks, other conversions, the clock."""

import contextlib
import os
import pathlib
import shutil
import subprocess
import time

from fault_tools import SETTINGS, Row, descendants, digest, files_in, fresh, kill, tell

FAKE_TIME = pathlib.Path("/usr/lib/x86_64-linux-gnu/faketime/libfaketimeMT.so.1")


def killed(bench):
    row = Row("SIGKILL at a random moment",
              "`captoria-cli convert`, every 4th time the window's `/AUTO`, on a short and on a "
              "long film, alone or with all child processes: the children end; a film has its name "
              "only if it is complete; the source and its folder are unchanged; the settings file "
              "is the old or the new one; the next conversion succeeds and empties tmp")
    rng, folder = bench.random("kill"), bench.folder / "kill"
    wholes = {name: bench.reference(name) for name in ("harbour", "long")}
    for number in range(bench.count(200, 12)):
        name = "long" if number % 2 else "harbour"
        whole, seconds = wholes[name]
        video, data = bench.film(name, folder / "films"), folder / "data"
        data.mkdir(parents=True, exist_ok=True)
        (data / "Captoria.ini").write_text(SETTINGS)
        source, beside, made = digest(video), files_in(folder / "films"), video.with_suffix(".divx")
        window = number % 4 == 3
        start = ["Captoria", "--data", data, "/AUTO"] if window else ["captoria-cli", "convert", "--data", data]
        process = bench.start([bench.program(start[0]), *start[1:], video])
        time.sleep(rng.uniform(0, seconds * (1.6 if window else 1.1)))
        alone = rng.random() < 0.5
        kill([process.pid] if alone else [process.pid, *descendants(process.pid)])
        process.wait()
        when = f"{name}, {'window' if window else 'cli'}, {'alone' if alone else 'with children'}"
        row.times += 1
        row.check(not bench.await_orphans(5), f"children still running after 5 s ({when})")
        row.check(digest(made) in (None, whole), f"half a film ({when})")
        row.check(digest(video) == source, f"the source changed ({when})")
        others = set(files_in(folder / "films")) - {*beside, made.name}
        row.check(not others, f"left beside the film: {others} ({when})")
        settings = (data / "Captoria.ini").read_text()
        new = settings.startswith("[General]\n") and settings.endswith("\n") and "FontNameL=" in settings
        row.check(settings == SETTINGS or (new and "a line of my own" in settings), f"half a settings file ({when})")
        run = bench.convert(video, data, "--set", "ReplaceDivX=-1")
        row.check(run.status == 0 and digest(made) == whole, f"the next conversion ({when}) {tell(run)}")
        row.check_temp(data, " by the next conversion")
    return row


@contextlib.contextmanager
def small_disk(folder, kilobytes):
    fresh(folder)
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={kilobytes}k", "tmpfs", folder], check=True)
    try:
        yield folder
    finally:
        subprocess.run(["umount", folder], check=True)


def needs_root(bench, row):
    if not bench.is_root:
        row.notes.append("skipped: mounting a tmpfs needs root")
    return not bench.is_root


def judge_full(row, run, video, whole, folder):
    """Checks that there is a complete film, or a failure that names a file of the full `folder`, and no film."""
    made = digest(video.with_suffix(".divx"))
    if run.status == 0:
        row.check(made == whole, f"status 0 without the whole film: {tell(run)}")
    else:
        row.check(run.status == 1 and str(folder) in run.err, f"the failure does not name the file: {tell(run)}")
        row.check(made is None, f"a film despite the failure: {tell(run)}")
    return run.status != 0


def full_output(bench):
    row = Row("Disk full, output",
              "the film on a tmpfs that grows from run to run: either the status is not 0, the file "
              "is named, nothing is left under the final name or beside it, and tmp is empty; or "
              "the film is complete")
    if needs_root(bench, row):
        return row
    whole, _ = bench.reference("harbour")
    size, data, failed = (bench.films / "harbour.avi").stat().st_size // 1024 + 12, bench.folder / "full-data", 0
    points = bench.count(50, 6)
    for number in range(points):
        with small_disk(bench.folder / "full", size + 480 * number // points // 4 * 4) as disk:
            for path in bench.films.glob("harbour.*"):
                shutil.copy(path, disk)
            before = files_in(disk)
            run = bench.convert(disk / "harbour.avi", fresh(data))
            failed += judge_full(row, run, disk / "harbour.avi", whole, disk)
            others = set(files_in(disk)) - {*before, "harbour.divx"}
            row.check(not others, f"left on the full disk: {others}")
            row.check_temp(data)
            row.times += 1
    row.notes.append(f"{failed} of {row.times} too small")
    return row


def full_temp(bench):
    row = Row("Disk full, tmp",
              "`--data` on a tmpfs that grows from run to run, every other time with `--keep-temp`: "
              "the same; with `--keep-temp`, the next conversion can replace every half-written "
              "tool or list")
    if needs_root(bench, row):
        return row
    whole, _ = bench.reference("harbour")
    video, data = bench.film("harbour", bench.folder / "full-film"), bench.folder / "full"
    with small_disk(data, 1 << 20):
        bench.convert(video, data, "--keep-temp")
        pages = {name: -(-(data / name).stat().st_size // 4096) * 4 for name in files_in(data)}  # kilobytes
        needed = sum(pages.values())
        tools = sum(size for name, size in pages.items() if name.endswith(".exe"))
    points, failed = bench.count(50, 6), 0
    for number in range(points):
        # A third of the sizes end within the tools, the others within the files that the conversion makes.
        part, parts = (number, points // 3) if number < points // 3 else (number - points // 3, points - points // 3)
        low, high = (8, tools) if number < points // 3 else (tools, needed * 102 // 100)
        with small_disk(data, (low + (high - low) * part // parts) // 4 * 4):
            video.with_suffix(".divx").unlink(missing_ok=True)
            more = ["--keep-temp"] if number % 2 else []
            run = bench.convert(video, data, *more)
            failed += judge_full(row, run, video, whole, data)
            if not more:
                row.check_temp(data)
            subprocess.run(["mount", "-o", "remount,size=1g", data], check=True)
            run = bench.convert(video, data, "--set", "ReplaceDivX=-1")
            row.check(run.status == 0 and digest(video.with_suffix(".divx")) == whole, f"with room again {tell(run)}")
            row.check_temp(data, " with room again")
            row.times += 1
    row.notes.append(f"{failed} of {row.times} too small")
    return row


def full_settings(bench):
    row = Row("Disk full, settings file",
              "the window's `/AUTO` with the settings on a tmpfs that fills up and tmp elsewhere: "
              "the settings file is the old one or the complete new one, nothing is left beside it, "
              "the film is made, nothing waits for a person")
    if needs_root(bench, row):
        return row
    whole, _ = bench.reference("harbour")
    kept = 0
    for number in range(bench.count(50, 6)):
        video = bench.film("harbour", bench.folder / "full-film")
        with small_disk(bench.folder / "full", 160) as data, small_disk(data / "tmp", 1 << 20):
            (data / "tmp").chmod(0o755)
            old = SETTINGS + "; filler\n" * (number * 97)
            (data / "Captoria.ini").write_text(old)
            with contextlib.suppress(OSError), open(data / "filler", "wb", buffering=0) as filler:
                for _ in range(40 - number % 10):  # pages; the first ones contain folders and settings
                    filler.write(b"x" * 4096)
            run = bench.window(video, data, seconds=bench.seconds // 2)
            new = (data / "Captoria.ini").read_text()
            kept += new == old
            changed = "FontNameL=" in new and new.count("; filler") == number * 97 and new.endswith("\n")
            row.check(new == old or changed, f"half a settings file: {tell(run)}")
            others = [name for name in files_in(data) if ".new-" in name]
            row.check(not others, f"left beside the settings: {others}")
            row.check(new != old or "Captoria.ini" in run.err, f"does not say that the settings were not saved: {tell(run)}")
            trouble = "waits for a person" if run.status is None else "no film"
            row.check(run.status == 0 and digest(video.with_suffix(".divx")) == whole, f"{trouble}: {tell(run)}")
            row.times += 1
    row.notes.append(f"{kept} of {row.times} kept the old file and said so")
    return row


def together(bench):
    row = Row("Two and four at once",
              "on the same video and on different ones, with one data folder: each conversion "
              "succeeds and makes its own complete film; tmp folders are empty")
    wholes = {name: bench.reference(name)[0] for name in ("harbour", "long")}
    for number in range(bench.count(24, 4)):
        count, same, name = (2, 4)[number % 2], number // 2 % 2 == 0, ("harbour", "long")[number // 4 % 2]
        data = fresh(bench.folder / "together" / "data")
        folders = [bench.folder / "together" / str(0 if same else i) for i in range(count)]
        videos = [bench.film(name, folder) for folder in folders]
        processes = []
        for i, video in enumerate(videos):
            words = [bench.program("captoria-cli"), "convert", str(video), "--data", str(data), "--quiet"]
            processes.append(subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                              stderr=subprocess.STDOUT, text=True, env=bench.environment))
        named = []
        for process in processes:
            try:
                out, _ = process.communicate(timeout=20 * bench.seconds)
            except subprocess.TimeoutExpired:
                kill([*descendants(process.pid), process.pid])
                out, _ = process.communicate()
            row.check(process.returncode == 0, f"{count} at once ({name}): status {process.returncode}: {out[-150:]}")
            named.append(out.strip())
        for path in set(named):
            row.check(digest(path) == wholes[name], f"{count} at once: {path} is not whole")
        row.check(len(set(named)) == count, f"{count} at once: {count - len(set(named))} used the name of another")
        row.check_temp(data)
        row.times += 1
    return row


def clock(bench):
    row = Row("Clock going backwards",
              "the programs' clock jumps back and forth by up to ten years every few milliseconds "
              "(libfaketime), and files have dates in the future: the film is made and complete, "
              "within the usual time")
    if not FAKE_TIME.exists():
        row.notes.append("skipped: libfaketime is not installed (apt-get install libfaketime)")
        return row
    rng, whole = bench.random("clock"), bench.reference("harbour")[0]
    offset = bench.folder / "offset"
    environment = {"LD_PRELOAD": str(FAKE_TIME), "FAKETIME_TIMESTAMP_FILE": str(offset), "FAKETIME_NO_CACHE": "1",
                   # The monotonic clock never goes backwards, and the system dates the files.
                   "FAKETIME_DONT_FAKE_MONOTONIC": "1", "NO_FAKE_STAT": "1"}
    for number in range(bench.count(40, 4)):
        video, data = bench.film("harbour", bench.folder / "clock"), fresh(bench.folder / "clock-data")
        future = time.time() + 10 * 365 * 86400
        for path in [*video.parent.iterdir()]:
            os.utime(path, (future, future))
        if number % 2:  # an old film with a date in the future, to be replaced
            video.with_suffix(".divx").write_bytes(b"old")
            os.utime(video.with_suffix(".divx"), (future, future))
        offset.write_text("+0")
        words = ["captoria-cli", "convert", "--data", data, "--set", "ReplaceDivX=-1", video]
        process = bench.start([bench.program(words[0]), *words[1:]], environment=environment)
        last = time.monotonic() + bench.seconds
        while process.poll() is None and time.monotonic() < last:
            beside = offset.with_suffix(".new")
            beside.write_text(f"-{rng.choice([1, 60, 3600, 86400, 315360000])}" if rng.random() < 0.6 else "+0")
            beside.replace(offset)
            time.sleep(0.003)
        row.check(process.poll() == 0, f"status {process.poll()}")
        bench.await_orphans(1)
        row.check(digest(video.with_suffix(".divx")) == whole, "not the whole film")
        row.check_temp(data)
        row.times += 1
    return row


ROWS = [killed, full_output, full_temp, full_settings, together, clock]
