// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the options dialog does when its user accepts it.
#pragma once

#include <array>
#include <optional>

#include "app/project.h"

namespace captoria {

// Fonts of the tracks' cue lists by the tracks' indices; nothing for a track that keeps its own.
using ListFonts = std::array<std::optional<Font>, kMostTracks>;

// What changed on screen, and whether the settings file could be written.
struct OptionsEffect {
  bool frame_changed = false;  // the number of the video frame in the preview
  bool back_color_or_width_changed = false;
  bool list_fonts_changed = false;
  Result<void> saved;
};

// Takes the options of `edited`, which are written at once, and gives the open tracks the fonts, which are saved with
// their styles. Other settings, and fonts of tracks that are not open, are ignored. The options change also if they
// could not be written.
OptionsEffect ApplyOptions(Preferences& preferences, Project& project, const Settings& edited, const ListFonts& fonts);

// The font of the cue list of a track, 0 to 7: the present one if the track is open, otherwise the one it will have.
Font ListFontOf(const Preferences& preferences, const Project& project, int index);

inline bool IsOpen(const Project& project, int index) { return index < project.tracks.Count(); }

}  // namespace captoria
