#!/usr/bin/env python3
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Builds and runs the tests, and prints which share of the lines and branches of each folder they run, in Markdown."""

import collections
import json
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"


def run_tests():
    subprocess.run([ROOT / "scripts/setup.sh", "test", "coverage"], check=True)
    subprocess.run([ROOT / "scripts/build.sh", "coverage"], check=True)
    for counts in BUILD.rglob("*.gcda"):  # from an earlier run
        counts.unlink()
    return subprocess.run(["ctest", "--preset", "coverage", f"-j{os.cpu_count()}", "--progress"], cwd=ROOT).returncode


def by_folder():
    """{folder: counts}: lines and branches, covered and total, without the tests themselves."""
    # The compiler also counts the branches of exceptions, which nobody wrote.
    summary = subprocess.run(["gcovr", "--root", ROOT, "--exclude", "tests/", "--exclude", "bench/", "--exclude",
                              "build/", "--exclude-throw-branches", "--json-summary", "-", BUILD], cwd=ROOT,
                             stdout=subprocess.PIPE, check=True)
    folders = collections.defaultdict(collections.Counter)
    for file in json.loads(summary.stdout)["files"]:
        for folder in (file["filename"].split("/")[0], "all"):
            for what in ("line", "branch"):
                for count in ("covered", "total"):
                    folders[folder][f"{what}_{count}"] += file[f"{what}_{count}"]
    return folders


def main():
    failed = run_tests()
    print("\n| Folder | Lines | run | Branches | run |\n|---|---:|---:|---:|---:|")
    for folder, counts in sorted(by_folder().items(), key=lambda item: (item[0] == "all", item[0])):
        share = [f"{counts[f'{what}_total']:,} | {counts[f'{what}_covered'] / max(counts[f'{what}_total'], 1):.0%}"
                 for what in ("line", "branch")]
        print(f"| {folder} | {' | '.join(share)} |")
    return failed


if __name__ == "__main__":
    sys.exit(main())
