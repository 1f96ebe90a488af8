// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The pixels of a rectangle that a drawing covers. Each pixel takes a byte, so that the compiler turns the loops into
// vector code and copying a run's mask is about as fast as copying memory.
#pragma once

#include <cstdint>
#include <vector>

#include "render/dib.h"
#include "render/text_surface.h"

namespace captoria {

// The part that two rectangles share; empty if they share nothing.
Rect Intersection(const Rect& a, const Rect& b);
inline bool IsEmpty(const Rect& rect) { return rect.right <= rect.left || rect.bottom <= rect.top; }

class Coverage {
 public:
  Coverage() = default;

  // Nothing covered yet in `area`.
  explicit Coverage(const Rect& area);

  const Rect& Area() const { return area_; }

  // Covers the pixels that are set in a bitmap of one bit per pixel, highest bit first, with rows `pitch` bytes apart
  // and its top left corner at `left`, `top`. Pixels outside the area are ignored.
  void AddBits(const std::uint8_t* bits, int width, int rows, int pitch, int left, int top);

  void AddRectangle(const Rect& rect);

  // The coverage moved by `dx` and `dy`, as far as it is inside `clip`.
  Coverage Clipped(const Rect& clip, int dx, int dy) const;

  // Every pixel within `width` pixels of a covered one in both directions: the union of all moves by up to `width`.
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
