// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Lays text out: which glyph of which font goes where. Pango handles mixed scripts, joined letters, both directions and
// fallback fonts; render/glyph_cache.h draws the glyphs.
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

// The fonts that a drawing really used, for users who chose a font that is not installed.
struct FontReport {
  std::map<std::string, std::set<std::string>> fonts;  // chosen name -> names of the fonts that drew its text
  std::set<char32_t> missing;                          // characters that no installed font has; drawn as empty boxes

  void Add(const FontReport& other);
};

struct PlacedGlyph {
  GlyphFace* face;  // null for a character that no font has: a box, `glyph` pixels wide
  std::uint32_t glyph;
  int x;  // of the origin, from the left end of the text
  int y;  // of the origin, below the baseline
};

struct ShapedText {
  std::vector<PlacedGlyph> glyphs;
  int width = 0;  // advance, pixels
};

// The height of a font's lines above and below the baseline, rounded up to whole pixels.
struct LineMetrics {
  int ascent = 0;
  int descent = 0;
  int Height() const { return ascent + descent; }
};

// Point sizes are converted at 96 pixels per inch on every machine. A shaper belongs to one thread; several shapers may
// share a collection.
class TextShaper {
 public:
  explicit TextShaper(std::shared_ptr<FontCollection> collection);
  TextShaper(const TextShaper&) = delete;
  TextShaper& operator=(const TextShaper&) = delete;
  ~TextShaper();

  // Sets the font for the following calls.
  void Select(const Font& font);

  // Lays out `text`, in UTF-8, as one line. Control characters become blanks, invalid bytes U+FFFD. Text after the
  // first 32 KiB is ignored: 32 KiB are wider than any frame, and the bound limits time and memory.
  ShapedText Shape(std::string_view text, bool right_to_left);

  LineMetrics Metrics();

  const FontReport& Report() const { return report_; }

 private:
  struct State;  // the objects of the libraries
  std::unique_ptr<State> state_;
  FontReport report_;
};

}  // namespace captoria
