#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/make_language.sh: writes assets/languages/English.Captoria.exe.xml from the texts of the program. To be run
# when one has changed; the tests say so, and which translations lack it then.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh dev language_template
build/dev/bin/language_template assets/languages/English.Captoria.exe.xml
