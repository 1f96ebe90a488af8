// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A bitmap of 16 colours, of which a subtitle uses the first four: 0 background, 1 text, 2 outline, 3 shadow or the
// cue's font colour. A plain value that knows of no screen: a pixel is the number of its colour-table entry.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/color.h"
#include "base/result.h"

namespace captoria {

class cDIB {
 public:
  static constexpr int kEntries = 16;

  // Drawing uses only these; the others are not meant to be seen, whatever colour comes nearest.
  static constexpr int kDrawnEntries = 4;

  // The longest side, in pixels: far beyond any frame, and a bound on what a cue can make us hold.
  static constexpr int kLongestSide = 16384;

  // Makes a bitmap of entry 0 with a black colour table in place of what there was. False, and no bitmap, for a side
  // below 1 or beyond kLongestSide.
  bool Create(int width, int height);
  void Destroy();

  // Both 0 while there is no bitmap.
  int Width() const { return width_; }
  int Height() const { return height_; }

  // The pixels of row `y` from the top, an entry 0 to 15 each.
  std::span<std::uint8_t> Row(int y) { return {RowStart(y), static_cast<std::size_t>(width_)}; }
  std::span<const std::uint8_t> Row(int y) const {
    return {const_cast<cDIB*>(this)->RowStart(y), static_cast<std::size_t>(width_)};
  }

  const std::array<Color, kEntries>& Palette() const { return palette_; }
  void SetColorInPalette16(const Color& color, int index) { palette_.at(static_cast<std::size_t>(index)) = color; }

  // The drawn entry nearest to `color`; of equally near ones the first.
  std::uint8_t NearestEntry(const Color& color) const;

  // Fills the bitmap with the entry nearest to `color`.
  void Cls(const Color& color);

  // Writes a BMP file of four bits a pixel, whole or not at all. Unwritable when that fails or there is no bitmap.
  Result<void> Save(const std::string& path) const;

 private:
  std::uint8_t* RowStart(int y) {
    return pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  }

  int width_ = 0;
  int height_ = 0;
  std::array<Color, kEntries> palette_{};
  std::vector<std::uint8_t> pixels_;  // rows from the top, a byte a pixel
};

}  // namespace captoria
