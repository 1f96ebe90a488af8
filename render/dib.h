// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A bitmap of 16 colours, of which a subtitle uses the first four: 0 background, 1 text, 2 outline, 3 shadow or the
// cue's font colour. It is a plain value and does not depend on a screen: a pixel is the number of its colour-table
// entry.
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

  // Drawing uses only these entries, even if the colour of another one is nearer.
  static constexpr int kDrawnEntries = 4;

  // The longest side in pixels: far beyond any frame, and a bound on the memory that a cue can take.
  static constexpr int kLongestSide = 16384;

  // Replaces the bitmap by one filled with entry 0, all colours black. If a side is below 1 or above kLongestSide,
  // returns false and leaves no bitmap.
  bool Create(int width, int height);
  void Destroy();

  // Both are 0 if there is no bitmap.
  int Width() const { return width_; }
  int Height() const { return height_; }

  // The pixels of row `y`, counted from the top; each is an entry from 0 to 15.
  std::span<std::uint8_t> Row(int y) { return {RowStart(y), static_cast<std::size_t>(width_)}; }
  std::span<const std::uint8_t> Row(int y) const {
    return {const_cast<cDIB*>(this)->RowStart(y), static_cast<std::size_t>(width_)};
  }

  const std::array<Color, kEntries>& Palette() const { return palette_; }
  void SetColorInPalette16(const Color& color, int index) { palette_.at(static_cast<std::size_t>(index)) = color; }

  // The drawn entry whose colour is nearest to `color`; the first of several equally near ones.
  std::uint8_t NearestEntry(const Color& color) const;

  // Fills the bitmap with the entry nearest to `color`.
  void Cls(const Color& color);

  // Writes a BMP file of four bits per pixel, whole or not at all. Unwritable if that fails or there is no bitmap.
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
