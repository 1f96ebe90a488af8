// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes the list files that script/list_parser.h reads: which bitmap is shown from when to when, and where on the
// frame.
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

// All before the first cue.
std::string ListHeader(ListForm form, const ListColors& colors, VideoSystem system);

// One line with its end.
std::string ListLine(ListForm form, const ListEntry& cue);

}  // namespace captoria
