// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/preview.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>

namespace captoria {
namespace {

constexpr std::size_t kPixel = 4;  // bytes

// `over` / `under`, rounded to the nearest whole number, halves to the even one. `under` is above 0.
std::int64_t DivideToEven(std::int64_t over, std::int64_t under) {
  std::int64_t whole = over / under, rest = over % under;
  if (rest < 0) {
    rest += under;
    --whole;
  }
  const bool is_half = rest == under - rest;
  return rest > under - rest || (is_half && whole % 2 != 0) ? whole + 1 : whole;
}

int ToInt(std::int64_t value) {
  return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), INT32_MAX));
}

void Put(std::uint8_t* pixel, const Color& color) {
  pixel[0] = color.blue;
  pixel[1] = color.green;
  pixel[2] = color.red;
  pixel[3] = 0xFF;
}

std::uint8_t* PixelAt(VideoFrame& frame, std::int64_t x, std::int64_t y) {
  return frame.pixels.data() + static_cast<std::size_t>(y * frame.width + x) * kPixel;
}

}  // namespace

Point PlaceOnPreview(const Size& frame, const Size& bitmap, int hor_pos, int slider_value, int slider_maximum) {
  std::int64_t x = std::int64_t{hor_pos} + (frame.width - bitmap.width) / 2;
  // The right edge comes last: if a bitmap is wider than the picture, the end of the lines stays visible.
  x = std::max<std::int64_t>(x, 0);
  x = std::min<std::int64_t>(x, frame.width - bitmap.width);

  const std::int64_t room = frame.height - bitmap.height;
  const std::int64_t up = slider_maximum < 1 ? 0 : DivideToEven(room * slider_value, slider_maximum);
  return {.x = ToInt(x), .y = ToInt(room - up)};
}

void Overlay(VideoFrame& frame, const cDIB& bitmap, Point at, const Color& back_color) {
  std::array<bool, cDIB::kEntries> is_drawn{};
  std::ranges::transform(bitmap.Palette(), is_drawn.begin(), [&](const Color& entry) { return entry != back_color; });

  const std::int64_t x0 = at.x, y0 = at.y;
  const std::int64_t left = std::max<std::int64_t>(-x0, 0),
                     right = std::min<std::int64_t>(bitmap.Width(), frame.width - x0);
  const std::int64_t top = std::max<std::int64_t>(-y0, 0),
                     bottom = std::min<std::int64_t>(bitmap.Height(), frame.height - y0);
  for (std::int64_t y = top; y < bottom; ++y) {
    const auto row = bitmap.Row(static_cast<int>(y));
    for (std::int64_t x = left; x < right; ++x) {
      const std::uint8_t entry = row[static_cast<std::size_t>(x)];
      if (is_drawn[entry]) Put(PixelAt(frame, x0 + x, y0 + y), bitmap.Palette()[entry]);
    }
  }
}

VideoFrame ImageOf(const cDIB& bitmap) {
  VideoFrame image{.width = bitmap.Width(), .height = bitmap.Height(), .pixels = {}};
  image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * kPixel);
  std::uint8_t* pixel = image.pixels.data();
  for (int y = 0; y < image.height; ++y) {
    for (const std::uint8_t entry : bitmap.Row(y)) {
      Put(pixel, bitmap.Palette()[entry]);
      pixel += kPixel;
    }
  }
  return image;
}

}  // namespace captoria
