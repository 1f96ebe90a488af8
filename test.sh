#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# ./test.sh [--sanitizers] [CTEST ARGS...]: installs what building and testing need, builds, and runs the tests.
set -euo pipefail
cd "$(dirname "$0")"
preset=dev
if [ "${1-}" = --sanitizers ]; then
  preset=sanitizers
  shift
fi
scripts/setup.sh test
scripts/build.sh "$preset"
exec ctest --preset "$preset" -j "$(nproc)" --progress "$@"
