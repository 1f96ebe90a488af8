// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Finds out for most cues that they fit without laying them out. Only the few that come near the edge have to be
// measured, which takes fifty times as long.
#pragma once

#include <array>
#include <string_view>

#include "render/text_surface.h"
#include "settings/track_style.h"

namespace captoria {

class QuickFit {
 public:
  // `surface` must outlive the object. Its selected font changes.
  QuickFit(TextSurface& surface, const Font& font, const Size& area);

  // True if `text` fits the area without doubt: it has no font tags, all its letters are Latin, Greek or Cyrillic, and
  // the sum of their widths leaves enough room for what a font adds between letters. False means that it may still fit.
  bool SurelyFits(std::string_view text);

 private:
  static constexpr std::size_t kLetters = 0x500;  // code points up to the end of Cyrillic
  static constexpr int kUnknown = -1;

  using Advances = std::array<int, kLetters>;

  // The width of the letter at `at`, which moves past it; kUnknown if the widths of such letters cannot be added up.
  int Advance(std::string_view text, std::size_t& at, bool tagged);

  int Measure(std::string_view letter, bool tagged);

  TextSurface& surface_;
  Font font_;
  int width_;                         // the largest sum of widths that surely fits
  int most_lines_;                    // the largest number of lines that fits
  std::array<Advances, 2> advances_;  // without tags: in the font itself; with tags: the widest of its four styles
};

}  // namespace captoria
