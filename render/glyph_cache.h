// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Glyphs as bitmaps of one bit a pixel, hinted and unsmoothed, drawn by FreeType once each.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;
struct FT_LibraryRec_;
struct _FcPattern;

namespace captoria {

// Where a glyph covers pixels, relative to its origin on the baseline.
struct GlyphBitmap {
  int left = 0;  // of the first column, to the right
  int top = 0;   // of the first row, upwards
  int width = 0;
  int rows = 0;
  int pitch = 0;  // bytes a row; the highest bit is the leftmost pixel
  std::vector<std::uint8_t> bits;
};

// One font file at one size, with the slant and weight that the font matcher asks to be made up where the file has
// none.
class GlyphFace {
 public:
  GlyphFace(FT_LibraryRec_* library, _FcPattern* pattern);
  GlyphFace(const GlyphFace&) = delete;
  GlyphFace& operator=(const GlyphFace&) = delete;
  ~GlyphFace();

  // Valid as long as the face. A glyph that cannot be drawn is empty.
  const GlyphBitmap& Glyph(std::uint32_t index);

 private:
  GlyphBitmap Load(std::uint32_t index);
  GlyphBitmap FromOutline();
  GlyphBitmap FromColours() const;

  FT_FaceRec_* face_ = nullptr;  // null when the file cannot be opened
  bool embolden_ = false;
  double strike_scale_ = 1;  // wanted size by that of the colour bitmaps
  std::unordered_map<std::uint32_t, GlyphBitmap> glyphs_;
};

}  // namespace captoria
