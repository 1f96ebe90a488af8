// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/dib.h"

#include <algorithm>

#include "media/bmp/bmp_file.h"

namespace captoria {
namespace {

int Distance(const Color& a, const Color& b) {
  const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
  return red * red + green * green + blue * blue;
}

}  // namespace

bool cDIB::Create(int width, int height) {
  Destroy();
  if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) return false;
  width_ = width;
  height_ = height;
  pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
  palette_ = {};
  return true;
}

void cDIB::Destroy() {
  width_ = height_ = 0;
  pixels_.clear();
}

std::uint8_t cDIB::NearestEntry(const Color& color) const {
  const auto drawn = std::span{palette_}.first(kDrawnEntries);
  const auto nearest = std::ranges::min_element(drawn, {}, [&](const Color& entry) { return Distance(entry, color); });
  return static_cast<std::uint8_t>(nearest - drawn.begin());
}

void cDIB::Cls(const Color& color) { std::ranges::fill(pixels_, NearestEntry(color)); }

Result<void> cDIB::Save(const std::string& path) const {
  if (width_ == 0) return Failure(ErrorKind::Unwritable, path + ": there is no bitmap to write");
  return WriteBmp(path, {{width_, height_}, palette_, pixels_});
}

}  // namespace captoria
