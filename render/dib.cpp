// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/dib.h"

#include <algorithm>

#include "platform/files.h"

namespace captoria {
namespace {

// Microsoft, BITMAPFILEHEADER and BITMAPINFOHEADER.
constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kTable = std::size_t{4} * cDIB::kEntries;
constexpr std::size_t kRowsAt = kFileHeader + kInfoHeader + kTable;

// Appends integers in little-endian order.
class LittleEndian {
 public:
  explicit LittleEndian(std::string& bytes) : bytes_(bytes) {}
  void Put(std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i, value >>= 8) bytes_ += static_cast<char>(value & 0xFF);
  }

 private:
  std::string& bytes_;
};

int Distance(const Color& a, const Color& b) {
  const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
  return red * red + green * green + blue * blue;
}

std::string Headers(const cDIB& dib) {
  const auto size = static_cast<std::uint32_t>(dib.Size());
  std::string bytes = "BM";
  LittleEndian out(bytes);
  out.Put(static_cast<std::uint32_t>(kRowsAt) + size, 4);
  out.Put(0, 4);
  out.Put(kRowsAt, 4);
  out.Put(kInfoHeader, 4);
  out.Put(static_cast<std::uint32_t>(dib.Width()), 4);
  out.Put(static_cast<std::uint32_t>(dib.Height()), 4);  // positive: the bottom row comes first
  out.Put(1, 2);                                         // planes
  out.Put(4, 2);                                         // bits a pixel
  out.Put(0, 4);                                         // not compressed
  out.Put(size, 4);
  for (int i = 0; i < 4; ++i) out.Put(0, 4);  // resolution and colours used: not told
  for (const Color& color : dib.Palette()) {
    out.Put(color.blue, 1);
    out.Put(color.green, 1);
    out.Put(color.red, 1);
    out.Put(0, 1);
  }
  return bytes;
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
  std::string bytes = Headers(*this);
  bytes.resize(kRowsAt + static_cast<std::size_t>(Size()));
  char* out = bytes.data() + kRowsAt;
  const auto pairs = static_cast<std::size_t>(width_) / 2;
  for (int y = height_ - 1; y >= 0; --y, out += BytesPerScanLine()) {
    const auto row = Row(y);
    for (std::size_t i = 0; i < pairs; ++i) out[i] = static_cast<char>(row[2 * i] << 4 | row[2 * i + 1]);
    if (width_ % 2 != 0) out[pairs] = static_cast<char>(row[2 * pairs] << 4);
  }
  return WriteWholeFile(path, bytes, Sync::No);
}

}  // namespace captoria
