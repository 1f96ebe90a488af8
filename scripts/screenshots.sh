#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/screenshots.sh [FOLDER]: draws the window and its dialogs with the sample into FOLDER, docs/window by default.
# Needs no screen.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh test
scripts/build.sh release screenshots
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build/bin/screenshots samples/harbour.avi "$work" 2>/dev/null
QT_SCALE_FACTOR=2 build/bin/screenshots samples/harbour.avi "$work" track-2x 2>/dev/null
mkdir -p "${1:-docs/window}"
cp "$work"/*.png "${1:-docs/window}"
