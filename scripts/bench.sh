#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/bench.sh [NAME...]: installs the programs we measure against, builds, and runs the comparisons of bench/, with
# a table of goals and figures at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh bench
scripts/build.sh release
bench/run "$@"
