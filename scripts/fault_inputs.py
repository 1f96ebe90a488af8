# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Rows of scripts/faults.py that replace a file that a program reads by something else."""

import fcntl
import os
import subprocess
import time

from fault_mutations import damaged_texts
from fault_tools import MEGABYTE, NOBODY, SETTINGS, Row, digest, files_in, fresh, kill, left_in_temp, tell


def readers(bench, data):
    """Name, extension of the file that is read, and a function that gives the command that reads a path."""
    cli, mux, films = bench.program("captoria-cli"), bench.program("DivXMux.exe"), bench.films
    out, cues, film = data / "out.divx", films / "harbour.en.srt", films / "tiny.avi"
    return [
        ("video of info", ".avi", lambda path: [cli, "info", path, "--json"]),
        ("video of convert", ".avi", lambda path: [cli, "convert", path, "--subtitle", cues, "--data", data]),
        ("subtitles of convert", ".srt", lambda path: [cli, "convert", film, "--subtitle", path, "--data", data]),
        ("index of convert", ".idx", lambda path: [cli, "convert", film, "--subtitle", path, "--data", data]),
        ("commands of convert", ".cbx",
         lambda path: [cli, "convert", film, "--subtitle", cues, "--commands", path, "--data", data]),
        ("list of batch", ".txt", lambda path: [cli, "batch", path, "--data", data]),
        ("cues", ".srt", lambda path: [cli, "cues", path, "--json", "--data", data]),
        ("render", ".srt", lambda path: [cli, "render", path, "--out", data / "bitmaps", "--data", data]),
        ("commands of cues", ".cbx", lambda path: [cli, "cues", cues, "--commands", path, "--data", data]),
        ("video of DivXMux.exe", ".avi", lambda path: [mux, "-v", "()", path, "-o", out]),
        ("packets of DivXMux.exe", ".xsub", lambda path: [mux, "-v", "()", film, "-s", "(x)", path, "-o", out]),
        ("list of DivXMux.exe", ".txt", lambda path: [mux, "-v", "()", film, "-s", "(x)", path, "-o", out]),
        ("index of DivXMux.exe", ".idx", lambda path: [mux, "-v", "()", film, "-s", "(x)", path, "-o", out]),
        ("list of bmptoxsub.exe", ".txt", lambda path: [bench.program("bmptoxsub.exe"), path, data / "out.xsub"]),
        ("script of captoria-run", ".bat", lambda path: [bench.program("captoria-run"), path]),
    ]


def put_in_place(kind, path):
    if kind == "a pipe without a writer":
        os.mkfifo(path)
    elif kind == "a folder":
        path.mkdir()
    elif kind == "a file without permission to read it":
        path.write_text("secret")
        path.chmod(0)
    elif kind == "no file":
        pass
    else:
        path.symlink_to({"the program's own memory": "/proc/self/mem", "bytes without end": "/dev/zero",
                         "a link to itself": path}[kind])


KINDS = ["a pipe without a writer", "a folder", "the program's own memory", "a file without permission to read it",
         "bytes without end", "a link to itself", "no file"]


def unreadable(bench):
    row = Row("Read errors",
              f"{', '.join(KINDS)} in place of each file that a program reads: status 1 or 2, the "
              f"file is named, nothing is made, within {bench.seconds} s and {bench.megabytes} MB "
              f"({5 * bench.megabytes} MB for bytes without end)")
    data = bench.folder / "unreadable"
    for kind in KINDS:
        user = NOBODY if kind == "a file without permission to read it" else None
        if user and not bench.is_root:
            row.notes.append("files without permission skipped: changing the user needs root")
            continue
        for name, ending, words in readers(bench, data):
            fresh(data).chmod(0o777)
            bench.films.chmod(0o777 if user else 0o755)
            path = data / f"input{ending}"
            put_in_place(kind, path)
            run = bench.run(words(path), user=user)
            named = str(path) in run.err or path.name in run.err
            # A subtitle file may have half a gigabyte, so a program reads that much of an endless one.
            most = 5 * bench.megabytes if kind == "bytes without end" else bench.megabytes
            quick = run.seconds < bench.seconds and run.kilobytes < most * 1024
            row.check(run.status in (1, 2) and named and quick, f"{kind} as {name} {tell(run)}")
            made = [file for file in files_in(data) if file.endswith((".divx", ".xsub", ".bmp")) and file != path.name]
            row.check(not made and not left_in_temp(data), f"{kind} as {name}: left {made or left_in_temp(data)}")
            row.times += 1
    bench.films.chmod(0o755)
    return row


def truncated(bench):
    row = Row("Film cut while it is read",
              "`convert` of a long film that is cut at a random place at a random moment: a failure "
              "that names the film and makes none, or a film, with a warning if it is shorter than "
              "that of the uncut film")
    rng, (whole, seconds) = bench.random("truncate"), bench.reference("long")
    data = bench.folder / "truncated-data"
    shorter = 0
    for _ in range(bench.count(50, 5)):
        video = bench.film("long", bench.folder / "truncated")
        made = video.with_suffix(".divx")
        process = bench.start([bench.program("captoria-cli"), "convert", video, "--data", fresh(data)])
        time.sleep(rng.uniform(seconds * 0.2, seconds))
        os.truncate(video, rng.randrange(video.stat().st_size))
        try:
            status = process.wait(bench.seconds)
        except subprocess.TimeoutExpired:
            kill([process.pid])
            status = process.wait()
        err = (bench.folder / "err").read_text(errors="replace")
        end = f"status {status}: {err[-150:]}"
        if status == 0:
            shorter += digest(made) != whole
            row.check(digest(made) == whole or video.name in err, f"a shorter film without a warning: {end}")
        else:
            row.check(status == 1 and video.name in err and not made.exists(), end)
        row.check(not bench.await_orphans(5), "children still running after 5 s")
        row.check_temp(data)
        row.times += 1
    row.notes.append(f"{shorter} of {row.times} made a shorter film, with a warning")
    return row


def settings(bench):
    row = Row("Settings file locked, damaged or missing",
              "`convert` and the window's `/AUTO`: the film is made, nothing waits for a person, "
              "and no line of a readable file and no byte of a damaged file is lost")
    whole, _ = bench.reference("harbour")
    cases = [*damaged_texts(bench.random("settings")), ("locked", SETTINGS.encode()), ("read-only", SETTINGS.encode()),
             ("a pipe without a writer", None), ("a folder", None), ("the program's own memory", None),
             ("bytes without end", None), ("a link to itself", None)]
    for kind, content in cases:
        for convert in (bench.convert, bench.window):
            data = fresh(bench.folder / "settings")
            ini, user, lock = data / "Captoria.ini", None, None
            if content is None:
                put_in_place(kind, ini)
            else:
                ini.write_bytes(content)
            video = bench.film("harbour", bench.folder / "settings-film")
            if kind == "locked":
                lock = open(ini, "rb")
                fcntl.flock(lock, fcntl.LOCK_EX)
            if kind == "read-only":
                if not bench.is_root:
                    continue
                user = NOBODY
                (data / "tmp").mkdir()
                os.chown(data / "tmp", NOBODY, NOBODY)
                for path, mode in ((data / "tmp", 0o755), (video.parent, 0o777), (ini, 0o444), (data, 0o555)):
                    path.chmod(mode)
            run = convert(video, data, user=user, seconds=bench.seconds // 2)
            if lock:
                lock.close()
            who = f"{kind}, {'cli' if convert == bench.convert else 'window'}:"
            row.check(run.status == 0 and digest(video.with_suffix(".divx")) == whole, f"{who} {tell(run)}")
            if content is not None:
                kept = [(data / name).read_bytes() for name in files_in(data)]
                lines = {line for file in kept for line in file.splitlines()}
                row.check(content in kept or lines.issuperset(content.splitlines()), f"{who} content lost")
            row.times += 1
    return row


def hostile_languages(rng):
    root = lambda inside, tag="Language": f'<?xml version="1.0"?>\n<{tag}>{inside}</{tag}>'.encode()
    laughs = "".join(f'<!ENTITY l{i} "{f"&l{i - 1};" * 10}">' for i in range(1, 12))
    entity = f'<?xml version="1.0"?><!DOCTYPE x [<!ENTITY l0 "ha">{laughs}]><x><Form1 mnuFile="&l11;"/></x>'
    outside = '<?xml version="1.0"?><!DOCTYPE x [<!ENTITY f SYSTEM "file:///dev/zero">]><x><Form1 mnuFile="&f;"/></x>'
    captions = "".join(f' c{i}="x"' for i in range(200_000))
    return [("100,000 elements deep", root("<a>" * 100_000 + "</a>" * 100_000)), ("unclosed, deep", b"<a>" * 1_000_000),
            ("billion laughs", entity.encode()), ("entity of a device", outside.encode()),
            ("an attribute of 10 MB", root(f'<Form1 mnuFile="{"W" * (10 << 20)}" Caption="{"W" * (1 << 20)}"/>')),
            ("200,000 attributes", root(f"<Form1{captions}/>")), ("a million elements", root("<Form1/>" * 1_000_000)),
            ("placeholders", root('<Messages Finished="%n%s%1%2%99$s{0}" Failed="%n"/><Form1 mnuFile="&amp;&amp;&amp;%1"/>')),
            ("an open comment", b"<x><!-- " + b"-" * (1 << 20)), *damaged_texts(rng)]


def hostile_commands(rng):
    lines = [f'Select {rng.randrange(9)}, "{rng.choice("-<aW")}"{rng.choice(["", "A"])}, ""' for _ in range(20_000)]
    return [("20,000 selections", "\n".join(lines).encode()), ("100,000 wrong lines", b'Select 1 "x"\n' * 100_000),
            ("quotation marks", b'Select 2, ' + b'"' * 1_000_000 + b', ""\n'),
            ("commas", b"Select " + b"," * 1_000_000 + b"\nPosAlignment " + b"," * 1_000_000),
            ("huge numbers", b'Select 99999999999999999999, "-"A, ""\nPosAlignment -99999999999999999999, l\nPosAlignment 1e308, r'),
            ("binary fields", b'Select 1, "\xff\xfe\x80\0"A, "\xf4\x90\x80\x80"\nPosAlignment \0, \xff\n'), *damaged_texts(rng)]


def hostile(bench, row, cases, name, settings_line, same):
    whole, _ = bench.reference("harbour")
    most = 4 * bench.megabytes
    for kind, content in cases:
        data = fresh(bench.folder / "hostile")
        (data / name).write_bytes(content)
        (data / "Captoria.ini").write_text(f"{SETTINGS}{settings_line}{data / name if same is None else ''}\n")
        video = bench.film("harbour", bench.folder / "hostile-film")
        run = bench.window(video, data, seconds=3 * bench.seconds)
        made = digest(video.with_suffix(".divx"))
        good = run.status == 0 and (made == whole if same else made) and run.kilobytes < most * MEGABYTE // 1024
        row.check(good and not left_in_temp(data), f"{kind}: {tell(run)}")
        row.times += 1
    return row


def language_files(bench):
    row = Row("Hostile language files",
              "the window's `/AUTO` in that language: the same film is made, nothing waits for a "
              f"person, within {3 * bench.seconds} s and {4 * bench.megabytes} MB")
    cases = hostile_languages(bench.random("language"))
    return hostile(bench, row, cases, "Hostile.Captoria.exe.xml", "Lang=Hostile", same=True)


def command_files(bench):
    row = Row("Hostile command files",
              "the window's `/AUTO` with that file as `BatchToRun`: a film is made, nothing waits "
              f"for a person, within {3 * bench.seconds} s and {4 * bench.megabytes} MB")
    return hostile(bench, row, hostile_commands(bench.random("commands")), "hostile.cbx", "BatchToRun=", same=None)


ROWS = [unreadable, truncated, settings, language_files, command_files]
