// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The list of a track's bitmaps, in the two forms that the tools read: which bitmap is shown from when to when, and
// where on the frame.
#pragma once

#include <string>
#include <string_view>

#include "settings/track_style.h"

namespace captoria {

enum class ListForm {
  Converter,  // for bmptoxsub.exe
  Mux,        // for DivXMux.exe itself
};

// A bitmap and its place; pixels of the frame.
struct ListEntry {
  std::string_view bitmap;  // its file's name
  std::string_view show;    // times as the track's list has them
  std::string_view hide;
  int width = 0;
  int height = 0;
  int x = 0;
  int y = 0;
};

// All before the first cue. `system` is "NTSC" or "PAL".
std::string ListHeader(ListForm form, const TrackStyle& style, std::string_view system);

// One line with its end.
std::string ListLine(ListForm form, const ListEntry& cue);

}  // namespace captoria
