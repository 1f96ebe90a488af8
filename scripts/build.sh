#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/build.sh PRESET [TARGET...]: configures if necessary and builds. Prints nothing unless something fails.
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { cmake --preset "$preset" "${launcher[@]}" && cmake --build --preset "$preset" ${1:+--target "$@"}; } \
  >"$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
