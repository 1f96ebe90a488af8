#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/setup.sh [test] [bench] [docs] [fuzz] [coverage] [ci] [package]: installs the Debian packages for building and
# running, and those of the named groups. If nothing is missing, it prints nothing and ends at once.
set -euo pipefail

build=(
  cmake g++ ninja-build pkg-config python3
  libavcodec-dev libavformat-dev libcli11-dev libexpected-dev libglib2.0-dev libpango1.0-dev libpugixml-dev
  libswscale-dev libuchardet-dev libqt6svg6 nlohmann-json3-dev qt6-base-dev
  fonts-dejavu-core  # Latin, Hebrew and Arabic; without any font nothing can be drawn
)
test=(
  desktop-file-utils ffmpeg libgmock-dev libgtest-dev
  fonts-liberation fonts-noto-cjk fonts-noto-color-emoji fonts-noto-core fonts-symbola
)
bench=(dvdauthor ffmpeg fonts-liberation)
docs=(imagemagick)
fuzz=(clang libclang-rt-14-dev)
coverage=(gcovr)
ci=(clang clang-format-14 clang-tidy-14 codespell)
package=(appstream debootstrap desktop-file-utils dpkg-dev file librsvg2-bin libxml2-utils lintian mandoc)

wanted=("${build[@]}")
for group in "$@"; do
  declare -n packages="$group"
  wanted+=("${packages[@]}")
done

missing=()
for name in "${wanted[@]}"; do
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
  as_root=(env)
elif command -v sudo >/dev/null; then
  as_root=(sudo)
else
  echo "setup: these packages are missing, and installing them needs root or sudo: ${missing[*]}" >&2
  exit 1
fi

echo "setup: installing ${missing[*]}" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update -q && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -q --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  tail -n 20 "$log" >&2
  echo "setup: the packages could not be installed" >&2
  exit 1
fi
