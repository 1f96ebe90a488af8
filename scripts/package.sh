#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/package.sh: builds, checks the desktop files and man pages, makes the Debian package
# build/captoria_VERSION_ARCHITECTURE.deb and prints its path.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh package
scripts/build.sh release

# quietly COMMAND...: shows the output of the command only if it fails.
quietly() {
  local said
  if ! said=$("$@" 2>&1); then
    printf '%s\n' "$said" >&2
    return 1
  fi
}

quietly desktop-file-validate assets/desktop/org.captoria.Captoria.desktop
quietly appstreamcli validate --no-net assets/desktop/org.captoria.Captoria.metainfo.xml
quietly xmllint --noout assets/desktop/org.captoria.Captoria.mime.xml
quietly mandoc -T lint -W warning docs/man/*.1
scripts/check_man.py build/bin

rm -f build/captoria_*.deb
umask 022  # for the folders in the package
quietly cpack --config build/CPackConfig.cmake -B build
package=$(echo build/captoria_*.deb)
lintian --allow-root --fail-on error,warning "$package" >&2
echo "$package"
