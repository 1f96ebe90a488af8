// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes the list files that script/list_parser.h reads: which bitmap is shown when, and where on the frame.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/color.h"
#include "base/video_system.h"

namespace captoria {

enum class ListForm {
  Converter,  // for bmptoxsub.exe
  Mux,        // for DivXMux.exe itself
};

// The entries 1 to 3: letters, outline and shadow.
using ListColors = std::array<Color, 3>;

// A bitmap and its place on the frame, in pixels.
struct ListEntry {
  std::string_view bitmap;  // the name of its file
  std::string_view show;    // times as "00:00:01,000"
  std::string_view hide;
  int width = 0;
  int height = 0;
  int x = 0;
  int y = 0;
};

// Everything before the first cue.
std::string ListHeader(ListForm form, const ListColors& colors, VideoSystem system);

// The line of a cue, with its line end.
std::string ListLine(ListForm form, const ListEntry& cue);

}  // namespace captoria
