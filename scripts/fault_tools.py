# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Shared by the rows of scripts/faults.py: running and watching programs, the films to run them on, and the findings."""

import contextlib
import ctypes
import dataclasses
import hashlib
import os
import pathlib
import random
import select
import shutil
import signal
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
NOBODY = 65534
SEED = 20240229
MEGABYTE = 1 << 20

# The window writes back this position of its own unchanged.
SETTINGS = "[General]\nMainX=195\nMainY=90\nShowWelcome=0\n; a line of my own\n"

MOST_TEXT = 4 * MEGABYTE  # of a program's output that is kept
PR_SET_CHILD_SUBREAPER = 36


@dataclasses.dataclass
class Run:
    """One run of a program: its exit status, -N if signal N ended it, None if it had to be stopped."""

    status: int | None
    out: str
    err: str
    seconds: float
    kilobytes: int


@dataclasses.dataclass
class Row:
    name: str
    checked: str
    times: int = 0
    found: list = dataclasses.field(default_factory=list)
    notes: list = dataclasses.field(default_factory=list)

    def check(self, holds, what):
        if not holds:
            self.found.append(what)
        return holds

    def check_temp(self, data, when=""):
        left = left_in_temp(data)
        self.check(not left, f"left in tmp{when}: {left[:3]}")

    def verdict(self):
        if not self.found:
            return "; ".join(["none" if self.times else "not run", *self.notes])
        kinds = list(dict.fromkeys(self.found))
        return "; ".join([f"**{len(self.found)}**: {kinds[0]}", *kinds[1:4], *self.notes])


def tell(run):
    """Describes a run in a few words, for a finding."""
    how = "was still running" if run.status is None else f"ended with {run.status}"
    words = " ".join(run.err.split())[-160:].replace("|", "/")
    return f"{how} after {run.seconds:.1f} s, {run.kilobytes // 1024} MB: {words}"


def digest(path):
    """The digest of a file; None if it does not exist."""
    try:
        return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()
    except FileNotFoundError:
        return None


def files_in(folder):
    return sorted(path.relative_to(folder).as_posix() for path in folder.rglob("*") if not path.is_dir())


def left_in_temp(data):
    return [name for name in files_in(data) if name.startswith("tmp") and not name.endswith("/.captoria-tmp")]


def fresh(folder):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def descendants(parent):
    """The ids of all processes below `parent`, the youngest generation last."""
    children = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            with contextlib.suppress(OSError):
                stat = pathlib.Path("/proc", entry, "stat").read_text(errors="replace")
                children.setdefault(int(stat.rpartition(")")[2].split()[1]), []).append(int(entry))
    found = list(children.get(parent, []))
    for process in found:
        found += children.get(process, [])
    return found


def kill(processes):
    for process in processes:
        with contextlib.suppress(ProcessLookupError):
            os.kill(process, signal.SIGKILL)


class Bench:
    """A temporary folder with films, and the programs to run on them."""

    def __init__(self, folder, programs, quick):
        # The children of a killed program become our children, so that we can wait for them.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self.folder, self.quick = folder, quick
        self.is_root = os.geteuid() == 0
        self.programs = folder / "bin"  # a copy: other users may not read the build folder
        self.programs.mkdir()
        for name in ("Captoria", "captoria-cli", "captoria-run", "DivXMux.exe", "bmptoxsub.exe"):
            shutil.copy2(programs / name, self.programs / name)
        shutil.copytree(programs / "languages", self.programs / "languages")
        folder.chmod(0o755)
        (folder / "runtime").mkdir(mode=0o700)
        # Sanitizers need memory and time. Their exit status must differ from those of the programs.
        self.sanitized = b"__asan_init" in (self.programs / "captoria-cli").read_bytes()
        self.seconds = 60 if self.sanitized else 10
        self.megabytes = 1500 if self.sanitized else 200
        report = "exitcode=99:detect_leaks=0"
        self.environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "ASAN_OPTIONS": report,
                            "UBSAN_OPTIONS": "exitcode=99:halt_on_error=1", "HOME": str(folder),
                            "XDG_RUNTIME_DIR": str(folder / "runtime"), "QT_LOGGING_RULES": "*.warning=false"}
        for name in ("DISPLAY", "WAYLAND_DISPLAY"):
            self.environment.pop(name, None)
        self.films = folder / "films"
        self.films.mkdir()
        self._make_films()

    def count(self, times, quick):
        return quick if self.quick else times

    def random(self, name):
        return random.Random(f"{SEED} {name}")

    def program(self, name):
        return str(self.programs / name)

    def start(self, arguments, environment=None, user=None):
        with open(self.folder / "out", "wb") as out, open(self.folder / "err", "wb") as err:
            return subprocess.Popen([str(word) for word in arguments], stdin=subprocess.DEVNULL, stdout=out, stderr=err,
                                    env={**self.environment, **(environment or {})}, user=user,
                                    extra_groups=None if user is None else [])

    def run(self, arguments, seconds=None, **how):
        """Runs a program to its end, at most for `seconds`, then ends the processes that it left running."""
        began = time.monotonic()
        process = self.start(arguments, **how)
        watch = os.pidfd_open(process.pid)
        ended = select.select([watch], [], [], seconds or self.seconds)[0]
        os.close(watch)
        if not ended:
            kill([*descendants(process.pid), process.pid])
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        run = Run(process.returncode if ended else None, self._text("out"), self._text("err"),
                  time.monotonic() - began, usage.ru_maxrss)
        self.await_orphans(seconds=2)
        return run

    def await_orphans(self, seconds):
        """Waits for all our children, kills those that are still running, and gives their ids."""
        last = time.monotonic() + seconds
        late = []
        while True:
            try:
                process, _ = os.waitpid(-1, os.WNOHANG)
            except ChildProcessError:
                return late
            if process == 0 and time.monotonic() > last:
                kill(late := descendants(os.getpid()))
                last += 5
            elif process == 0:
                time.sleep(0.002)

    def convert(self, video, data, *more, **how):
        return self.run([self.program("captoria-cli"), "convert", video, "--data", data, *more], **how)

    def window(self, video, data, **how):
        """Runs the window program unattended."""
        return self.run([self.program("Captoria"), "--data", data, "/AUTO", video], **how)

    def film(self, name, folder):
        """Empties `folder`, copies the film `name` and its cues there, and gives the path of the film."""
        fresh(folder)
        for path in self.films.glob(f"{name}.*"):
            shutil.copy(path, folder / path.name)
        return folder / f"{name}.avi"

    def reference(self, name):
        """The digest of the film that an undisturbed conversion of `name` makes, and the seconds it takes."""
        folder = self.folder / "reference"
        video = self.film(name, folder)
        run = self.convert(video, fresh(folder / "data"))
        if run.status != 0:
            raise SystemExit(f"faults: {name} cannot be converted even without a disturbance: {run.err}")
        return digest(video.with_suffix(".divx")), run.seconds

    def ffmpeg(self, *words):
        subprocess.run(["ffmpeg", "-nostdin", "-v", "fatal", "-y", *map(str, words)], check=True, cwd=self.films)

    def _text(self, name):
        with open(self.folder / name, encoding="utf-8", errors="replace") as file:
            return file.read(MOST_TEXT)

    def _make_films(self):
        for name in ("harbour.avi", "harbour.en.srt", "harbour.ar.srt"):
            shutil.copy(ROOT / "samples" / name, self.films / name)
        picture, sound = ("-f", "lavfi", "-i", "testsrc2=s={}:r=25:d={}"), ("-f", "lavfi", "-i", "sine=d={}")
        source = lambda size, length: [w.format(size, length) for w in picture] + [w.format(length) for w in sound]
        self.ffmpeg(*source("640x480", 60), "-c:v", "mpeg4", "-q:v", 1, "-c:a", "pcm_s16le", "long.avi")
        self.ffmpeg(*source("160x120", 1), "-c:v", "mpeg4", "-c:a", "libmp3lame", "tiny.avi")
        self.ffmpeg(*source("96x64", 1), "-c:v", "mjpeg", "-c:a", "pcm_s16le", "-reserve_index_space", 4096, "pcm.avi")
        cues = []
        for i in range(200):
            show, hide = i * 300, i * 300 + 250
            stamp = lambda t: f"00:{t // 60000:02}:{t // 1000 % 60:02},{t % 1000:03}"
            cues.append(f"{i + 1}\n{stamp(show)} --> {stamp(hide)}\nCue <i>number</i> {i}\nand its second line\n")
        (self.films / "long.srt").write_text("\n".join(cues))
