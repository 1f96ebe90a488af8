// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Pieces of text laid out: which glyph of which font goes where. Mixed scripts, joined letters, both directions and
// fonts that stand in for a missing character are Pango's work; see render/glyph_cache.h for the glyphs themselves.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "render/font_collection.h"
#include "render/glyph_cache.h"
#include "settings/track_style.h"

namespace captoria {

// Which fonts a drawing really used: what to tell a user who chose a font that is not installed.
struct FontReport {
  std::map<std::string, std::set<std::string>> fonts;  // chosen name -> names of the fonts that drew its text
  std::set<char32_t> missing;                          // characters no installed font has; drawn as empty boxes

  void Add(const FontReport& other);
};

struct PlacedGlyph {
  GlyphFace* face;  // null: a box for a character no font has, `glyph` pixels wide
  std::uint32_t glyph;
  int x;  // of the origin, from the left end of the text
  int y;  // of the origin, below the baseline
};

struct ShapedText {
  std::vector<PlacedGlyph> glyphs;
  int width = 0;  // advance, pixels
};

// The lines of a font: what is above and below the baseline, rounded up to whole pixels.
struct LineMetrics {
  int ascent = 0;
  int descent = 0;
  int Height() const { return ascent + descent; }
};

// Sizes are taken at 96 pixels an inch on every machine. One thread at a time; as many shapers as threads may share a
// collection.
class TextShaper {
 public:
  explicit TextShaper(std::shared_ptr<FontCollection> collection);
  TextShaper(const TextShaper&) = delete;
  TextShaper& operator=(const TextShaper&) = delete;
  ~TextShaper();

  // The font of the calls that follow.
  void Select(const Font& font);

  // Lays `text`, UTF-8, out as one line. Control characters become blanks, invalid bytes U+FFFD. What stands behind the
  // first 32 KiB is left out: that much is wider than any frame in any font, and time and memory stay bounded.
  ShapedText Shape(std::string_view text, bool right_to_left);

  LineMetrics Metrics();

  const FontReport& Report() const { return report_; }

 private:
  struct State;  // the libraries' objects
  std::unique_ptr<State> state_;
  FontReport report_;
};

}  // namespace captoria
