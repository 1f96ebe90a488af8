#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/bench.sh [NAME...]: installs the programs we measure against, builds, and runs the comparisons of bench/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh bench
scripts/build.sh release
if [ $# -eq 0 ]; then
  # measure.py and film.py are what the others share.
  set -- $(cd bench && ls ./*.py | sed 's|^./||; s|\.py$||' | grep -v -x -e measure -e film)
fi
for name in "$@"; do python3 "bench/$name.py"; done
