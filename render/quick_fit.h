// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Tells, without laying anything out, of most cues that they fit: only the few near the edge are worth a measurement,
// which takes fifty times as long.
#pragma once

#include <array>
#include <string_view>

#include "render/text_surface.h"
#include "settings/track_style.h"

namespace captoria {

class QuickFit {
 public:
  // `surface` outlives the object. Its selected font is changed.
  QuickFit(TextSurface& surface, const Font& font, const Size& area);

  // True when `text` fits the area beyond doubt: it has no tags, all of its letters are Latin, Greek or Cyrillic, and
  // the sum of their widths leaves room to spare for whatever a font adds between two letters. False says nothing.
  bool SurelyFits(std::string_view text);

 private:
  static constexpr std::size_t kLetters = 0x500;  // code points up to the end of Cyrillic
  static constexpr int kUnknown = -1;

  using Advances = std::array<int, kLetters>;

  // The width of the letter that begins at `at`, which moves behind it; kUnknown when it is not one to be summed up.
  int Advance(std::string_view text, std::size_t& at, bool tagged);

  int Measure(std::string_view letter, bool tagged);

  TextSurface& surface_;
  Font font_;
  int width_;                         // what a sum of widths must stay below
  int most_lines_;                    // of a text that is not too high
  std::array<Advances, 2> advances_;  // in the font as it is; the widest in bold, italic, both or neither
};

}  // namespace captoria
