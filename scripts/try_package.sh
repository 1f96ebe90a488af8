#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/try_package.sh [PACKAGE.deb]: installs the package that scripts/package.sh has made into a new minimal Debian,
# with nothing but what it depends on, converts the sample there as root and, with /usr read-only, as a user, removes the
# package and lists what is left. To be run by hand, as root; takes some minutes and 1 GB in TMPDIR, or else /var/tmp.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)

fail() {
  echo "try_package: $*" >&2
  exit 1
}

# Everything mounted for the trial is seen in here alone and goes with the last process in here.
try_inside() {
  local root=$1 depends
  local -a inside=(chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive)
  local -a as_user=(chroot --userspec=tester:tester "$root" env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME=/home/tester
    XDG_RUNTIME_DIR=/home/tester/run QT_QPA_PLATFORM=offscreen timeout 120)  # a folder that every login makes
  mount -t proc proc "$root/proc"
  depends=$(dpkg-deb -f "$root/root/captoria.deb" Depends)

  echo "== what the package depends on"
  # With the programs that keep the databases of desktops, which have to forget the package in the end.
  "${inside[@]}" apt-get -q update >/dev/null
  "${inside[@]}" apt-get -q satisfy -y --no-install-recommends "$depends" \
    'desktop-file-utils, fontconfig, gtk-update-icon-cache, hicolor-icon-theme, shared-mime-info' >/dev/null 2>&1
  "${inside[@]}" useradd --create-home tester
  list_files "$root" >"$root/root/before"

  echo "== installing"
  "${inside[@]}" dpkg -i /root/captoria.deb
  "${inside[@]}" captoria --version
  "${inside[@]}" captoria-cli --version

  echo "== root converts, and could write everywhere"
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

# All but what users keep at home.
list_files() { (cd "$1" && find . -path ./proc -prune -o -path ./home -prune -o -path ./root -prune -o -print | sort); }

if [ "${1-}" = --inside ]; then
  try_inside "$2"
  exit
fi

[ "$(id -u)" -eq 0 ] || fail "needs root, for a system to install into"
package=${1:-$(echo "$here"/build/captoria_*.deb)}
[ -f "$package" ] || fail "$package: there is no such package; scripts/package.sh makes it"
"$here/scripts/setup.sh" test package

root=$(mktemp -d -p "${TMPDIR:-/var/tmp}" captoria-try-XXXXXX)
chmod 755 "$root"  # the user has to get in
# Nothing is mounted in there as seen from here; --one-file-system is for the day when that is wrong.
trap 'rm -rf --one-file-system "$root"' EXIT
echo "== a minimal Debian in $root"
debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" >"$root.log" 2>&1 ||
  fail "no system could be made: $(tail -n 3 "$root.log")"
rm -f "$root.log"
cp "$package" "$root/root/captoria.deb"
mkdir "$root/root/film"
cp "$here"/samples/harbour.{avi,ar.srt,en.srt} "$root/root/film"

unshare --mount --pid --fork --kill-child "$0" --inside "$root"

echo "== the films, as FFmpeg sees them"
for film in root/film home/tester/line home/tester/window; do
  streams=$(ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$root/$film/harbour.divx" | paste -sd ' ')
  echo "$film/harbour.divx: $streams"
  [ "$streams" = 'mpeg4 mp3 xsub xsub' ] || fail "that is not what was to be made"
done
cmp "$root"/home/tester/{line,window}/harbour.divx || fail "the window makes another film than the command line"

echo "== what is left outside of the users' homes"
left=$(comm -13 "$root/root/before" "$root/root/after")
[ -z "$left" ] || fail "$left"
echo nothing
