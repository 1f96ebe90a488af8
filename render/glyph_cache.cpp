// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/glyph_cache.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SYNTHESIS_H

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace captoria {
namespace {

constexpr FT_Int32 kMonoOutlines = FT_LOAD_TARGET_MONO | FT_LOAD_NO_BITMAP;

GlyphBitmap Copied(const FT_GlyphSlot slot) {
  const FT_Bitmap& bitmap = slot->bitmap;
  GlyphBitmap glyph{.left = slot->bitmap_left,
                    .top = slot->bitmap_top,
                    .width = static_cast<int>(bitmap.width),
                    .rows = static_cast<int>(bitmap.rows),
                    .pitch = std::abs(bitmap.pitch),
                    .bits{}};
  if (bitmap.buffer != nullptr) {
    glyph.bits.assign(bitmap.buffer, bitmap.buffer + static_cast<std::size_t>(glyph.pitch) * bitmap.rows);
  }
  return glyph;
}

// A glyph of a colour font reduced to lines: its edge and the dark parts inside. If it were filled, every face, flag
// and heart would look like the same blob.
class ColourPicture {
 public:
  ColourPicture(const FT_Bitmap& bitmap, double scale) : bitmap_(bitmap), scale_(scale) {
    width = static_cast<int>(std::ceil(bitmap.width * scale));
    rows = static_cast<int>(std::ceil(bitmap.rows * scale));
  }

  bool Covers(int x, int y) const {
    if (!IsSolid(x, y)) return false;
    const bool edge = !IsSolid(x - 1, y) || !IsSolid(x + 1, y) || !IsSolid(x, y - 1) || !IsSolid(x, y + 1);
    return edge || Brightness(Sample(x, y)) < kDark;
  }

  int width;
  int rows;

 private:
  static constexpr int kDark = 110;
  struct Pixel {
    int blue = 0, green = 0, red = 0, alpha = 0;
  };

  bool IsSolid(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < rows && Sample(x, y).alpha >= 128; }

  static int Brightness(const Pixel& pixel) { return (pixel.red * 3 + pixel.green * 6 + pixel.blue) / 10; }

  // The mean of the original pixels that pixel `x`, `y` of the smaller picture represents.
  Pixel Sample(int x, int y) const {
    const auto bound = [this](int place, unsigned end) {
      return std::min(static_cast<unsigned>(place / scale_), end - 1);
    };
    const unsigned left = bound(x, bitmap_.width), right = std::max(bound(x + 1, bitmap_.width), left + 1);
    const unsigned top = bound(y, bitmap_.rows), bottom = std::max(bound(y + 1, bitmap_.rows), top + 1);
    Pixel sum;
    for (unsigned row = top; row < bottom; ++row) {
      const unsigned char* at =
          bitmap_.buffer + static_cast<std::ptrdiff_t>(row) * bitmap_.pitch + std::ptrdiff_t{4} * left;
      for (unsigned column = left; column < right; ++column, at += 4) {
        sum.blue += at[0], sum.green += at[1], sum.red += at[2], sum.alpha += at[3];
      }
    }
    const int count = static_cast<int>((right - left) * (bottom - top));
    return {sum.blue / count, sum.green / count, sum.red / count, sum.alpha / count};
  }

  const FT_Bitmap& bitmap_;
  double scale_;
};

void SetSlant(FT_Face face, const FcMatrix& slant) {
  const auto fixed = [](double number) { return static_cast<FT_Fixed>(std::lround(number * 0x10000)); };
  FT_Matrix matrix{fixed(slant.xx), fixed(slant.xy), fixed(slant.yx), fixed(slant.yy)};
  FT_Set_Transform(face, &matrix, nullptr);
}

}  // namespace

GlyphFace::GlyphFace(FT_LibraryRec_* library, _FcPattern* pattern) {
  FcChar8* file = nullptr;
  int index = 0;
  double size = 0;
  FcPatternGetString(pattern, FC_FILE, 0, &file);
  FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
  FcPatternGetDouble(pattern, FC_PIXEL_SIZE, 0, &size);
  if (file == nullptr || FT_New_Face(library, reinterpret_cast<const char*>(file), index, &face_) != 0) {
    face_ = nullptr;
    return;
  }
  FcMatrix* matrix = nullptr;
  FcPatternGetMatrix(pattern, FC_MATRIX, 0, &matrix);
  if (FT_IS_SCALABLE(face_)) {
    FT_Set_Char_Size(face_, 0, static_cast<FT_F26Dot6>(std::lround(size * 64)), 0, 0);
    if (matrix != nullptr) SetSlant(face_, *matrix);
  } else if (face_->num_fixed_sizes > 0) {
    FT_Select_Size(face_, face_->num_fixed_sizes - 1);
    // If a font has pictures of a single size, the matcher gives that size, and the wanted scale in the matrix.
    const double wanted = size * (matrix != nullptr ? matrix->yy : 1);
    strike_scale_ = wanted / std::max(1.0, static_cast<double>(face_->size->metrics.y_ppem));
  }
  FcBool embolden = FcFalse;
  FcPatternGetBool(pattern, FC_EMBOLDEN, 0, &embolden);
  embolden_ = embolden != FcFalse;
}

GlyphFace::~GlyphFace() {
  if (face_ != nullptr) FT_Done_Face(face_);
}

const GlyphBitmap& GlyphFace::Glyph(std::uint32_t index) {
  const auto known = glyphs_.find(index);
  return known != glyphs_.end() ? known->second : glyphs_.emplace(index, Load(index)).first->second;
}

GlyphBitmap GlyphFace::Load(std::uint32_t index) {
  if (face_ == nullptr) return {};
  if (FT_IS_SCALABLE(face_)) return FT_Load_Glyph(face_, index, kMonoOutlines) == 0 ? FromOutline() : GlyphBitmap{};
  if (FT_Load_Glyph(face_, index, FT_LOAD_COLOR | FT_LOAD_TARGET_MONO) != 0) return {};
  switch (face_->glyph->bitmap.pixel_mode) {
    case FT_PIXEL_MODE_MONO:
      return Copied(face_->glyph);
    case FT_PIXEL_MODE_BGRA:
      return FromColours();
    default:
      return {};
  }
}

GlyphBitmap GlyphFace::FromOutline() {
  if (embolden_) FT_GlyphSlot_Embolden(face_->glyph);
  if (FT_Render_Glyph(face_->glyph, FT_RENDER_MODE_MONO) != 0) return {};
  return Copied(face_->glyph);
}

GlyphBitmap GlyphFace::FromColours() const {
  const FT_GlyphSlot slot = face_->glyph;
  if (slot->bitmap.buffer == nullptr || slot->bitmap.width == 0 || slot->bitmap.rows == 0) return {};
  const ColourPicture picture(slot->bitmap, strike_scale_);
  GlyphBitmap glyph{.left = static_cast<int>(std::lround(slot->bitmap_left * strike_scale_)),
                    .top = static_cast<int>(std::lround(slot->bitmap_top * strike_scale_)),
                    .width = picture.width,
                    .rows = picture.rows,
                    .pitch = (picture.width + 7) / 8,
                    .bits{}};
  const auto pitch = static_cast<std::size_t>(glyph.pitch);
  glyph.bits.resize(pitch * static_cast<std::size_t>(glyph.rows));
  for (int y = 0; y < glyph.rows; ++y) {
    std::uint8_t* row = glyph.bits.data() + pitch * static_cast<std::size_t>(y);
    for (int x = 0; x < glyph.width; ++x) {
      if (picture.Covers(x, y)) row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | 0x80 >> x % 8);
    }
  }
  return glyph;
}

}  // namespace captoria
