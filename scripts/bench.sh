#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/bench.sh [NAME...]: installs the programs to compare with, builds, runs the comparisons of bench/ and prints a
# table of goals and figures.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh bench
scripts/build.sh release
bench/run "$@"
