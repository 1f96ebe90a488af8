#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# ./test.sh [--sanitizers | --threads] [CTEST ARGS...]: installs the packages for building and testing, builds, and runs
# the tests.
set -euo pipefail
cd "$(dirname "$0")"
preset=dev
case ${1-} in
  --sanitizers | --threads)
    preset=${1#--}
    shift
    ;;
esac
scripts/setup.sh test
scripts/build.sh "$preset"
exec ctest --preset "$preset" -j "$(nproc)" --progress "$@"
