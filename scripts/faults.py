#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Disturbs the programs as the real world does, and prints what happened as a table in Markdown.

Everything happens to real files in a temporary folder. The rows about full disks mount small disks there, and the rows
about files of other users change the user: both need root and are skipped otherwise. A harmful input is kept.
"""

import argparse
import os
import pathlib
import platform
import sys
import tempfile
import time

import fault_disturbances
import fault_inputs
import fault_mutations
from fault_tools import ROOT, SEED, Bench

ROWS = [*fault_disturbances.ROWS, *fault_inputs.ROWS, *fault_mutations.ROWS]
TABLE = ROOT / "docs" / "faults.md"


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/faults.py", description=__doc__.split("\n")[0],
                                     epilog="Exit status: 0 nothing was found, 1 something was found, 2 wrong usage.")
    parser.add_argument("bin_folder", nargs="?", type=pathlib.Path, default=ROOT / "build" / "bin",
                        help="the folder of the programs (default: build/bin)")
    parser.add_argument("--quick", action="store_true", 
                        help="fewer runs of each row; all of them take ten minutes")
    parser.add_argument("--write", action="store_true",
                        help="also write the table to docs/faults.md; with --only, only those rows")
    parser.add_argument("--only", metavar="NAME", action="append", choices=[make.__name__ for make in ROWS],
                        help="only this row: %(choices)s")
    chosen = parser.parse_args()
    if not (chosen.bin_folder / "captoria-cli").is_file():
        parser.error(f"there are no programs in {chosen.bin_folder}")
    return chosen


def introduction(bench):
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") >> 30
    return (f"# Faults\n\nWhat `scripts/faults.py{' --quick' if bench.quick else ''}` did to the programs in its last run, "
            f"and what it found.\n\nMachine: {platform.system()}, {os.cpu_count()} processors, {memory} GB, "
            f"{'root' if bench.is_root else 'no root'}; {'with' if bench.sanitized else 'without'} sanitizers.\n"
            f"Seed {SEED}: the damage is the same in every run; the moments of kills depend on the machine.\n\n")


def table(lines):
    return "\n".join(["| What was done | Times | Checked | Found |", "|---|---:|---|---|", *lines.values()]) + "\n"


def written_lines():
    """The lines of docs/faults.md by the names of their rows. A run of some rows does not change the others."""
    lines = TABLE.read_text().splitlines() if TABLE.exists() else []
    return {line.split(" | ")[0][2:]: line for line in lines if line.startswith("| ") and " | Times | " not in line}


def main():
    chosen = arguments()
    makers = [make for make in ROWS if not chosen.only or make.__name__ in chosen.only]
    rows = []
    with tempfile.TemporaryDirectory(prefix="captoria-faults-") as folder:
        bench = Bench(pathlib.Path(folder), chosen.bin_folder, chosen.quick)
        bench.kept = pathlib.Path(tempfile.gettempdir()) / "captoria-faults-kept"
        for make in makers:
            began = time.monotonic()
            row = make(bench)
            rows.append((row, time.monotonic() - began))
            print(f"faults: {row.name}: {row.times:,} in {rows[-1][1]:.0f} s", *dict.fromkeys(row.found), *row.notes,
                  sep="\n  ", file=sys.stderr, flush=True)
        lines = {row.name: f"| {row.name} | {row.times:,} | {row.checked} | {row.verdict()} |" for row, _ in rows}
        print(introduction(bench) + table(lines))
        if chosen.write:
            TABLE.write_text(introduction(bench) + table({**(written_lines() if chosen.only else {}), **lines}))
    return 1 if any(row.found for row, _ in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
