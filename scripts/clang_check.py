#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""scripts/clang_check.py [BUILD [FILE...]]: runs clang-tidy and the warnings of clang++ over the sources that the build
folder BUILD (build/dev by default) compiles, or over those FILEs.

clang-tidy checks the product and reports clang's warnings as well. Tests, benchmarks and the programs of scripts are only parsed by clang++, which
finds the same warnings as compiling them. Prints all complaints; the exit status is 1 if there is one.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
NOT_PRODUCT = ("tests", "bench", "scripts")
WITH_VALUE = ("-o", "-MF", "-MT")
WITHOUT_VALUE = ("-c", "-MD")
COUNTS = re.compile(r"^\d+ warnings? (generated|treated as errors?)\.?\n", re.M)


def sources(build):
    """{path below ROOT: (folder, command)} of our own sources; generated ones are left out."""
    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["directory"], entry["file"])
        if path.is_relative_to(ROOT) and not path.is_relative_to(ROOT / "build"):
            found[path.relative_to(ROOT)] = (entry["directory"], shlex.split(entry["command"]))
    return found


def parse_command(command):
    """The command that compiles a source, as a command of clang++ that only parses it."""
    compiler = next(i for i, word in enumerate(command) if word.endswith("c++") or word.endswith("g++"))
    words = iter(command[compiler + 1:])
    kept = ["clang++", "-fsyntax-only", "-fno-caret-diagnostics"]
    for word in words:
        if word in WITH_VALUE:
            next(words)
        elif word not in WITHOUT_VALUE and not word.startswith(("-O", "-g")):
            kept.append(word)
    return kept


def check(build, path, folder, command):
    if path.parts[0] in NOT_PRODUCT:
        command = parse_command(command)
    else:
        command = ["clang-tidy-14", "-p", build, "--quiet", ROOT / path]
    return subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


def main():
    build = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/dev").resolve()
    known = sources(build)
    chosen = [pathlib.Path(name).resolve().relative_to(ROOT) for name in sys.argv[2:]] or sorted(known)
    for path in chosen:
        if path not in known:
            sys.exit(f"clang_check: {build} does not compile {path}")
    failed = False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for done in pool.map(lambda path: check(build, path, *known[path]), chosen):
            if done.returncode != 0:
                failed = True
                print(COUNTS.sub("", done.stdout), file=sys.stderr)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
