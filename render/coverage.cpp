// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/coverage.h"

#include <algorithm>

namespace captoria {
namespace {

// to[i] |= from[i]
void Merge(const std::uint8_t* from, std::uint8_t* to, int count) {
  for (int i = 0; i < count; ++i) to[i] = static_cast<std::uint8_t>(to[i] | from[i]);
}

}  // namespace

Rect Intersection(const Rect& a, const Rect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

Coverage::Coverage(const Rect& area) : area_(IsEmpty(area) ? Rect{} : area) {
  pixels_.resize(static_cast<std::size_t>(area_.Width()) * static_cast<std::size_t>(area_.Height()));
}

void Coverage::AddBits(const std::uint8_t* bits, int width, int rows, int pitch, int left, int top) {
  const Rect part = Intersection({left, top, left + width, top + rows}, area_);
  for (int y = part.top; y < part.bottom; ++y) {
    const std::uint8_t* source = bits + static_cast<std::ptrdiff_t>(y - top) * pitch;
    std::uint8_t* row = Row(y) - area_.left;
    for (int x = part.left; x < part.right; ++x) {
      const int column = x - left;
      row[x] = static_cast<std::uint8_t>(row[x] | (source[column / 8] >> (7 - column % 8) & 1));
    }
  }
}

void Coverage::AddRectangle(const Rect& rect) {
  const Rect part = Intersection(rect, area_);
  for (int y = part.top; y < part.bottom; ++y) {
    std::fill(Row(y) + (part.left - area_.left), Row(y) + std::max(part.right - area_.left, part.left - area_.left), 1);
  }
}

Coverage Coverage::Clipped(const Rect& clip, int dx, int dy) const {
  const Rect part = Intersection(area_.Moved(dx, dy), clip);
  Coverage clipped(part);
  if (IsEmpty(part)) return clipped;
  for (int y = part.top; y < part.bottom; ++y) {
    std::copy_n(Row(y - dy) + (part.left - dx - area_.left), part.Width(), clipped.Row(y));
  }
  return clipped;
}

Coverage Coverage::Spread(int width) const {
  if (width == 0 || IsEmpty(area_)) return *this;
  // A square is a horizontal line spread vertically, so two passes of 2w+1 steps replace (2w+1) x (2w+1) steps.
  Coverage across({area_.left - width, area_.top, area_.right + width, area_.bottom});
  for (int y = area_.top; y < area_.bottom; ++y) {
    for (int dx = 0; dx <= 2 * width; ++dx) Merge(Row(y), across.Row(y) + dx, area_.Width());
  }
  Coverage all({across.area_.left, area_.top - width, across.area_.right, area_.bottom + width});
  for (int y = area_.top; y < area_.bottom; ++y) {
    for (int dy = -width; dy <= width; ++dy) Merge(across.Row(y), all.Row(y + dy), across.area_.Width());
  }
  return all;
}

void Coverage::Paint(cDIB& dib, std::uint8_t entry) const {
  const Rect part = Intersection(area_, {0, 0, dib.Width(), dib.Height()});
  if (IsEmpty(part)) return;
  for (int y = part.top; y < part.bottom; ++y) {
    const std::uint8_t* covered = Row(y) + (part.left - area_.left);
    std::uint8_t* pixels = dib.Row(y).data() + part.left;
    for (int i = 0; i < part.Width(); ++i) pixels[i] = covered[i] != 0 ? entry : pixels[i];
  }
}

}  // namespace captoria
