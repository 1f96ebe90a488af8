#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/try_package.sh [PACKAGE.deb]: installs the package of scripts/package.sh and its dependencies into a new minimal
# Debian, converts the sample there as root and, with /usr read-only, as a user, then removes the package and lists the
# files that are left. Run it by hand, as root. It takes some minutes and 1 GB in TMPDIR, or /var/tmp if that is not set.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)

fail() {
  echo "try_package: $*" >&2
  exit 1
}

# Only the processes in here see the mounts of the trial; the mounts end with the last process.
try_inside() {
  local root=$1 depends
  local -a inside=(chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive)
  local -a as_user=(chroot --userspec=tester:tester "$root" env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME=/home/tester
    XDG_RUNTIME_DIR=/home/tester/run QT_QPA_PLATFORM=offscreen timeout 120)  # every login creates this folder
  mount -t proc proc "$root/proc"
  depends=$(dpkg-deb -f "$root/root/captoria.deb" Depends)

  echo "== the dependencies of the package"
  # Also the programs that maintain the databases of desktops, which have to forget the package at the end.
  "${inside[@]}" apt-get -q update >/dev/null
  "${inside[@]}" apt-get -q satisfy -y --no-install-recommends "$depends" \
    'desktop-file-utils, fontconfig, gtk-update-icon-cache, hicolor-icon-theme, shared-mime-info' >/dev/null 2>&1
  "${inside[@]}" useradd --create-home tester
  list_files "$root" >"$root/root/before"

  echo "== installing"
  "${inside[@]}" dpkg -i /root/captoria.deb
  "${inside[@]}" captoria --version
  "${inside[@]}" captoria-cli --version

  echo "== root converts, with write access everywhere"
  touch "$root/root/installed"
  "${inside[@]}" HOME=/root captoria-cli convert --quiet /root/film/harbour.avi
  find "$root/usr" "$root/etc" "$root/opt" -newer "$root/root/installed" >"$root/root/written"
  [ ! -s "$root/root/written" ] || fail "root's run wrote: $(cat "$root/root/written")"
  [ -d "$root/root/.local/share/captoria" ] || fail "root's files are not in root's home"

  echo "== a user converts, /usr read-only"
  mount --bind "$root/usr" "$root/usr"
  mount -o remount,bind,ro "$root/usr"
  if touch "$root/usr/lib/captoria/probe" 2>/dev/null; then fail "/usr can be written"; fi
  cp -r "$root/root/film" "$root/home/tester/line"
  cp -r "$root/root/film" "$root/home/tester/window"
  rm -f "$root"/home/tester/*/*.divx
  mkdir --mode=700 "$root/home/tester/run"
  "${inside[@]}" chown -R tester: /home/tester
  "${as_user[@]}" captoria-cli convert --quiet /home/tester/line/harbour.avi
  "${as_user[@]}" captoria /AUTO /home/tester/window/harbour.avi
  umount "$root/usr"
  (cd "$root/home/tester" && find . -type f -newer "$root/root/installed" -not -name 'harbour.*' | sort)

  echo "== removing"
  "${inside[@]}" dpkg -r captoria
  list_files "$root" >"$root/root/after"
}

# All files except those in home folders.
list_files() { (cd "$1" && find . -path ./proc -prune -o -path ./home -prune -o -path ./root -prune -o -print | sort); }

if [ "${1-}" = --inside ]; then
  try_inside "$2"
  exit
fi

[ "$(id -u)" -eq 0 ] || fail "needs root, to install a system"
package=${1:-$(echo "$here"/build/captoria_*.deb)}
[ -f "$package" ] || fail "$package: there is no such package; scripts/package.sh makes it"
"$here/scripts/setup.sh" test package

root=$(mktemp -d -p "${TMPDIR:-/var/tmp}" captoria-try-XXXXXX)
chmod 755 "$root"  # the user has to read it
# From here, nothing is mounted there; --one-file-system is a precaution.
trap 'rm -rf --one-file-system "$root"' EXIT
echo "== a minimal Debian in $root"
debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" >"$root.log" 2>&1 ||
  fail "the system could not be installed: $(tail -n 3 "$root.log")"
rm -f "$root.log"
cp "$package" "$root/root/captoria.deb"
mkdir "$root/root/film"
cp "$here"/samples/harbour.{avi,ar.srt,en.srt} "$root/root/film"

unshare --mount --pid --fork --kill-child "$0" --inside "$root"

echo "== the films, as FFmpeg sees them"
for film in root/film home/tester/line home/tester/window; do
  streams=$(ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$root/$film/harbour.divx" | paste -sd ' ')
  echo "$film/harbour.divx: $streams"
  [ "$streams" = 'mpeg4 mp3 xsub xsub' ] || fail "expected mpeg4 mp3 xsub xsub"
done
cmp "$root"/home/tester/{line,window}/harbour.divx || fail "the window and the command line made different films"

echo "== files left outside of the users' homes"
left=$(comm -13 "$root/root/before" "$root/root/after")
[ -z "$left" ] || fail "$left"
echo nothing
