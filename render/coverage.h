// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Which pixels a piece of drawing covers, within a rectangle. A byte a pixel: the loops below become vector code, which
// makes copying a run's mask about as fast as copying memory.
#pragma once

#include <cstdint>
#include <vector>

#include "render/dib.h"
#include "render/text_surface.h"

namespace captoria {

// What two rectangles share; without area when they share nothing.
Rect Intersection(const Rect& a, const Rect& b);
inline bool IsEmpty(const Rect& rect) { return rect.right <= rect.left || rect.bottom <= rect.top; }

class Coverage {
 public:
  Coverage() = default;

  // Nothing covered yet in `area`.
  explicit Coverage(const Rect& area);

  const Rect& Area() const { return area_; }

  // Covers what is set in a bitmap of one bit a pixel, highest bit first, rows `pitch` bytes apart, whose left top
  // corner lies at `left`, `top`. What falls outside the area is lost.
  void AddBits(const std::uint8_t* bits, int width, int rows, int pitch, int left, int top);

  void AddRectangle(const Rect& rect);

  // The part within `clip`, moved by `dx` and `dy`.
  Coverage Clipped(const Rect& clip, int dx, int dy) const;

  // Everything within `width` pixels of what is covered, in both directions: the union of all moves by up to `width`.
  Coverage Spread(int width) const;

  // Sets the covered pixels of `dib` to `entry`.
  void Paint(cDIB& dib, std::uint8_t entry) const;

 private:
  std::uint8_t* Row(int y) { return pixels_.data() + Offset(y); }
  const std::uint8_t* Row(int y) const { return pixels_.data() + Offset(y); }
  std::size_t Offset(int y) const {
    return static_cast<std::size_t>(y - area_.top) * static_cast<std::size_t>(area_.Width());
  }

  Rect area_;
  std::vector<std::uint8_t> pixels_;  // 0 or 1
};

}  // namespace captoria
