#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/make_language.sh: writes assets/languages/English.Captoria.exe.xml from the texts of the program. Run it after
# changing a text. The tests report a text that is missing there, and the translations that lack it.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh dev language_template
build/dev/bin/language_template assets/languages/English.Captoria.exe.xml
