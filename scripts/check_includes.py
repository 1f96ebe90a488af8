#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Checks that includes run in the direction the root CMakeLists.txt declares, and that only ui/ knows Qt.

Prints a line per wrong include and exits with 1 when there is one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROW = re.compile(r"^captoria_folder\((\w+)(?:\s+USES\s+([\w\s]+))?\)", re.M)
PROGRAM = re.compile(r"^captoria_program\(\S+ (\S+) USES (\w+)\)", re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def allowed_folders():
    """What each folder, and each program's main file, may include: {folder or file: {folder, ...}}."""
    text = (ROOT / "CMakeLists.txt").read_text()
    allowed = {name: {name, *(uses or "").split()} for name, uses in ROW.findall(text)}
    programs = {source: allowed[folder] for source, folder in PROGRAM.findall(text)}
    return allowed, programs


def main():
    allowed, programs = allowed_folders()
    everything = set(allowed) | {"tools", "tests", "bench", "ui"}
    wrong = []
    for folder in [*allowed, "tools"]:
        for path in sorted((ROOT / folder).rglob("*.[ch]*")):
            name = path.relative_to(ROOT).as_posix()
            reach = allowed.get(folder) or programs[name]
            for number, line in enumerate(path.read_text().splitlines(), 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
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
