#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""How much time 50 commands add to reading and listing 20,000 cues."""

import pathlib
import sys
import tempfile

from measure import compare, tell_goal
from read_srt import CLI, write_subtitles

# Half of the commands select by all lines, or by the first or last line; the other half places the selected cues.
SELECTS = ['Select 2, "", ""', 'Select , "the"A, ""', 'Select , "the line of", ""', 'Select , "", ".>i/<"',
           'Select , "", ",."A']


def write_commands(path, count):
    lines = ["# Fifty commands"]
    for i in range(count // 2):
        lines += [SELECTS[i % len(SELECTS)], f"PosAlignment {i}, c"]
    path.write_text("\r\n".join(lines) + "\r\n")


def main():
    with tempfile.TemporaryDirectory() as folder:
        cues, none, fifty = (pathlib.Path(folder) / name for name in ("a.srt", "none.cbx", "fifty.cbx"))
        write_subtitles(cues, 20_000)
        write_commands(none, 0)
        write_commands(fifty, 50)
        runs = compare({path.stem: [CLI, "cues", cues, "--commands", path] for path in (none, fifty)}, rounds=21)
        added = runs["fifty"].seconds - runs["none"].seconds
        print("50 commands on 20,000 cues")
        for name, run in runs.items():
            print(f"  captoria-cli cues, {name + ':':<8} {run.seconds * 1000:8.1f} ms")
        print(f"  the commands {added * 1000:14.1f} ms")
        tell_goal("50 commands on 20,000 cues", "under 50 ms", f"{added * 1000:.1f} ms", added < 0.05)
    return 0


if __name__ == "__main__":
    sys.exit(main())
