#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# ./run.sh ARGS...: installs what building needs, builds, and passes ARGS to captoria-cli.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
"$here/scripts/setup.sh"
"$here/scripts/build.sh" release
exec "$here/build/bin/captoria-cli" "$@"
