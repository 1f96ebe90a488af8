#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# ./run.sh [ARGS...]: installs the packages for building, builds, and passes ARGS to captoria-cli. Without ARGS it converts
# the sample and says how to watch the result.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
"$here/scripts/setup.sh"
"$here/scripts/build.sh" release
if [ $# -gt 0 ]; then exec "$here/build/bin/captoria-cli" "$@"; fi

cd "$here"
rm -f samples/harbour.divx
# Its subtitle files are loaded in the order of their names: Arabic, then English.
made=$(build/bin/captoria-cli convert samples/harbour.avi --data build/sample-data --set ReplaceDivX=-1 \
  --set UseRightToLeftLang0=-1 --set 'Language0=ar ARABIC' --set 'Language1=en ENGLISH')

printf -v film %q "$made"
cat <<END
Made $film, $(stat -c %s "$made") bytes: samples/harbour.avi with Arabic and English subtitles.
Watch it with the Arabic subtitles (English: --sid=2, s:1):
  mpv --sid=1 $film
  ffplay -sst s:0 $film
Or make a picture of one frame. The subtitles are placed on a television frame, so the film is fitted into one:
  ffmpeg -i $film -filter_complex '[0:v]scale=720:-2,pad=720:576:-1:-1[v];[v][0:s:0]overlay' \\
    -ss 3.5 -frames:v 1 -update 1 frame.png
END
