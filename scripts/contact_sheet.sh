#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# scripts/contact_sheet.sh: draws docs/rendering.png, which shows how styles and scripts are rendered. Each picture is a
# bitmap written by captoria-cli, laid over grey where players show the film.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh test docs
scripts/build.sh release

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
number=100

# cue LABEL TEXT [KEY=VALUE...]: one picture of the sheet; "|" in the text breaks the line.
cue() {
  local label=$1 text=$2 set=()
  shift 2
  for setting in "$@"; do set+=(--set "$setting"); done
  number=$((number + 1))
  printf '1\n00:00:01,000 --> 00:00:03,000\n%s\n' "${text//|/$'\n'}" >"$work/cue.srt"
  build/bin/captoria-cli render "$work/cue.srt" --data "$work" --out "$work" "${set[@]}" >"$work/said"
  if grep 'no installed font' "$work/said"; then exit 1; fi
  convert \( "$work/bmp00001.bmp" -fill '#8a8f98' -opaque '#0000ff' \) \
    \( -font Liberation-Sans -pointsize 13 -background '#e8e8ea' label:"$label" \) \
    -background '#e8e8ea' -append "$work/$number.png"
}

cue 'plain' 'Plain text|on two lines'
cue 'bold and italic runs' 'A <b>bold</b> and an <i>italic</i> run,|<b><i>both</i></b> at once'
for width in 0 1 2 3 4; do cue "outline $width" 'Outline' "OutlineWidth0=$width"; done
cue 'shadow 3' 'Shadow to the right' ShadowBevel0=3
cue 'shadow -3' 'Shadow to the left' ShadowBevel0=-3
cue 'left' 'Lines flush left|to the longest of them' InAlign0=0
cue 'centred' 'Lines centred|below the longest of them' InAlign0=1
cue 'right' 'Lines flush right|to the longest of them' InAlign0=2
cue 'right to left' 'שלום, עולם!|12 abc' UseRightToLeftLang0=1
cue 'font colours' '<font color="#FFC040">Amber</font> and white'
cue 'yellow on dark red' 'Any three colours' Color1B0=64 Color2R0=96 OutlineWidth0=2
cue 'fitted from 22 points' 'A line far too long for the picture gets a smaller size, the largest that fits'
cue 'fitted further' 'A line that is longer than any line should ever be gets a size that is smaller still, as far down as five points if it must'
cue 'cut when not fitted' 'A line far too long for the picture is cut off when its track is not to be fitted' FitFont0=0
cue 'Latin' 'Zażółć gęślą jaźń, ÀÉÎÕÜ ß'
cue 'Greek' 'Ξεσκεπάζω την ψυχοφθόρα βδελυγμία'
cue 'Cyrillic' 'Съешь ещё этих мягких булок'
cue 'Hebrew' 'דג סקרן שט בים מאוכזב' UseRightToLeftLang0=1
cue 'Arabic' 'صِف خَلقَ خَودٍ كَمِثلِ الشَمسِ' UseRightToLeftLang0=1
cue 'Arabic, Latin, numbers' 'الساعة 10:45 في Paris' UseRightToLeftLang0=1
cue 'Thai' 'เป็นมนุษย์สุดประเสริฐ'
cue 'Chinese, simplified' '视野无限广，窗外有蓝天' FontCharset0=134
cue 'Chinese, traditional' '視野無限廣，窗外有藍天' FontCharset0=136
cue 'Japanese' 'いろはにほへと ちりぬるを 色は匂へど' FontCharset0=128
cue 'Korean' '키스의 고유조건은 입술끼리' FontCharset0=129
cue 'combining marks' 'x̂ ẏ a̋ ŏ̱ n̥' FontName0='DejaVu Sans'
cue 'emoji' 'Emoji 😀 🎬 🐎 ♥ ☂'
cue 'serif, 30 points' 'Another font' FontName0='Liberation Serif' FontSize0=30

montage "$work"/1??.png -background '#e8e8ea' -gravity west -geometry '+10+5' -tile 2x -depth 8 -colors 64 \
  docs/rendering.png
