// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How one track's subtitles look and where they stand. Its defaults are those of the key table; DefaultTrackStyle() of
// settings/settings_values.h gives them.
#pragma once

#include <string>
#include <string_view>

#include "base/color.h"
#include "base/font.h"
#include "settings/placement.h"

namespace captoria {

// What settings files say of a cue list whose font nobody has chosen.
inline constexpr std::string_view kDefaultListFontName = "MS Sans Serif";
inline constexpr double kDefaultListFontSize = 8;  // points

constexpr int kHorPosMin = -200;
constexpr int kHorPosMax = 200;
constexpr int kOutlineWidthMax = 4;

struct TrackStyle {
  bool FitFont = false;  // cues beyond the safe viewing area get a smaller font
  int VertPos = 0;       // pixels above the bottom of the frame
  int HorPos = 0;        // pixels right of the centred place, kHorPosMin to kHorPosMax
  Alignment InAlign{};   // of the lines within the text block
  bool RightToLeft = false;
  std::string Language;  // code, blank and name: "en ENGLISH"
  int SubType = 0;
  Color ForeColor;       // palette entry 1
  Color OutlineColor;    // palette entry 2
  Color ShadowColor;     // palette entry 3
  int OutlineWidth = 0;  // 0 to kOutlineWidthMax
  int ShadowBevel = 0;   // offset of the shadow; negative is up and left
  Font font;
};

}  // namespace captoria
