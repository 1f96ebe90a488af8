// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the options dialog does to a session.
#pragma once

#include <array>
#include <optional>

#include "app/session.h"

namespace captoria {

// Fonts of the tracks' cue lists by the tracks' indices; nothing for a track that keeps its own.
using ListFonts = std::array<std::optional<Font>, kMostTracks>;

// What came of it: what of that on screen is another one now, and whether the settings file has it.
struct OptionsEffect {
  bool frame_changed = false;  // the number of the video frame behind the preview
  bool back_color_or_width_changed = false;
  bool list_fonts_changed = false;
  Result<void> saved;
};

// Gives the session the options of `edited`, which are written at once, and its open tracks the fonts, which are saved
// with their styles. Other settings and fonts of other tracks are not looked at. The session has the options also when
// they could not be written.
OptionsEffect ApplyOptions(Session& session, const Settings& edited, const ListFonts& fonts);

// The font of the cue list of a track, 0 to 7: as it is when the track is open, else as it will be.
Font ListFontOf(const Session& session, int index);

inline bool IsOpen(const Session& session, int index) { return index < session.tracks.Count(); }

}  // namespace captoria
