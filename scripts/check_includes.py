#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Checks that includes follow the direction that the root CMakeLists.txt declares, that only ui/ includes Qt, and that
each source includes its own header first, which proves that the header compiles alone.

Prints a line for each wrong include. The exit status is 1 if there is one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROW = re.compile(r"^captoria_folder\((\w+)(?:\s+USES\s+([\w\s]+))?\)", re.M)
PROGRAM = re.compile(r"^captoria_program\(\S+ (\S+) USES (\w+)\)", re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def allowed_folders():
    """The folders that each folder, and each program's main file, may include: {folder or file: {folder, ...}}."""
    text = (ROOT / "CMakeLists.txt").read_text()
    allowed = {name: {name, *(uses or "").split()} for name, uses in ROW.findall(text)}
    programs = {source: allowed[folder] for source, folder in PROGRAM.findall(text)}
    return allowed, programs


def own_header(path):
    """The header that declares what the source `path` defines: beside it, or a folder above the sources of a system."""
    folder = path.parent.parent if path.parent.name == "posix" else path.parent
    header = folder / (path.stem + ".h")
    return header.relative_to(ROOT).as_posix() if path.suffix == ".cpp" and header.exists() else None


def main():
    allowed, programs = allowed_folders()
    everything = set(allowed) | {"tools", "tests", "bench", "ui"}
    wrong = []
    for folder in [*allowed, "tools"]:
        for path in sorted((ROOT / folder).rglob("*.[ch]*")):
            name = path.relative_to(ROOT).as_posix()
            reach = allowed.get(folder) or programs[name]
            text, header, first = path.read_text(), own_header(path), True
            if path.suffix == ".h" and "\n#pragma once\n" not in text:
                wrong.append(f"{name}:1: lacks #pragma once")
            for number, line in enumerate(text.splitlines(), 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
                if first and header and match.group(2) != header:
                    wrong.append(f'{name}:{number}: the first include has to be "{header}"')
                first = False
                target = match.group(2).split("/")[0]
                if match.group(1) == '"' and target not in reach:
                    wrong.append(f'{name}:{number}: {folder}/ may not include "{match.group(2)}"')
                if match.group(1) == "<" and target in everything and "/" in match.group(2):
                    wrong.append(f"{name}:{number}: our own headers stand in quotation marks")
                if re.fullmatch(r"Q[A-Z]\w+|Qt\w*", target) and folder != "ui":
                    wrong.append(f"{name}:{number}: only ui/ may include Qt")
    print("\n".join(wrong), end="\n" if wrong else "", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
