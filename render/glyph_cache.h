// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Glyphs as bitmaps of one bit per pixel. FreeType draws each glyph once, hinted and without smoothing.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;
struct FT_LibraryRec_;
struct _FcPattern;  // NOLINT(clang-diagnostic-reserved-identifier)

namespace captoria {

// The pixels that a glyph covers, relative to its origin on the baseline.
struct GlyphBitmap {
  int left = 0;  // from the origin to the first column
  int top = 0;   // from the baseline up to the first row
  int width = 0;
  int rows = 0;
  int pitch = 0;  // bytes per row; the highest bit is the leftmost pixel
  std::vector<std::uint8_t> bits;
};

// A font file at one size. If the font matcher asks for a slant or weight that the file lacks, it is synthesised.
class GlyphFace {
 public:
  GlyphFace(FT_LibraryRec_* library, _FcPattern* pattern);
  GlyphFace(const GlyphFace&) = delete;
  GlyphFace& operator=(const GlyphFace&) = delete;
  ~GlyphFace();

  // Valid as long as the face exists. A glyph that cannot be drawn is empty.
  const GlyphBitmap& Glyph(std::uint32_t index);

 private:
  GlyphBitmap Load(std::uint32_t index);
  GlyphBitmap FromOutline();
  GlyphBitmap FromColours() const;

  FT_FaceRec_* face_ = nullptr;  // null if the file cannot be opened
  bool embolden_ = false;
  double strike_scale_ = 1;  // the wanted size divided by the size of the colour bitmaps
  std::unordered_map<std::uint32_t, GlyphBitmap> glyphs_;
};

}  // namespace captoria
