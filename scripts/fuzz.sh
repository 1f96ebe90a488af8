#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/fuzz.sh [SECONDS [NAME...]]: runs the fuzz targets tests/fuzz/NAME_fuzz.cpp (by default all) for SECONDS each,
# two at a time. Seeds come from tests/fuzz/seeds/NAME/ and tests/data/NAME/; the fuzzer keeps new inputs in
# build/fuzz/corpus/. If an input makes a target fail, the input is kept and the exit status is 1.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-10}
case $seconds in
  '' | *[!0-9]* | 0) echo "fuzz: SECONDS is a whole number above 0, not \"$seconds\"" >&2; exit 2 ;;
esac
shift $(($# > 0))

scripts/setup.sh fuzz
scripts/build.sh fuzz fuzz_targets

run_one() {
  local name=$1 seconds=$2 most=16384 corpus=build/fuzz/corpus/$1 kept=build/fuzz/findings/$1 log=build/fuzz/$1.log
  # The smallest valid file of these formats has headers and pictures, which take more bytes.
  case $name in avi | bmp | vobsub | xsub) most=65536 ;; esac
  mkdir -p "$corpus" "$kept"
  local folders=("$corpus")
  for seeds in "tests/fuzz/seeds/$name" "tests/data/$name"; do
    if [ -d "$seeds" ]; then folders+=("$seeds"); fi
  done
  if build/fuzz/bin/"$name"_fuzz -max_total_time="$seconds" -max_len="$most" -rss_limit_mb=1024 -timeout=10 \
    -print_final_stats=1 -artifact_prefix="$kept/" "${folders[@]}" >"$log" 2>&1; then
    echo "$name: nothing found in $(awk '/stat::number_of_executed_units/ { print $2 }' "$log") inputs"
    return 0
  fi
  grep -E -m 1 'ERROR: |runtime error: ' "$log" || tail -n 5 "$log"
  echo "$name: FOUND: the full report is in $log, the input is"
  sed -n 's/.*Test unit written to /  /p' "$log"
  return 1
}
export -f run_one

if [ $# -eq 0 ]; then
  set -- tests/fuzz/*_fuzz.cpp
  set -- "${@##*/}"
  set -- "${@%_fuzz.cpp}"
fi
# xargs ends with 123 if one of its runs ended with 1.
printf '%s\n' "$@" | xargs -P 2 -I NAME bash -c 'run_one NAME '"$seconds" || exit 1
