// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/xsub/subtitle_rle.h"

#include <algorithm>

namespace captoria {
namespace {

constexpr std::size_t kLongestRun = 255;

// Nibbles, the high one of each byte first.
class NibbleWriter {
 public:
  explicit NibbleWriter(Bytes& bytes) : bytes_(bytes) {}

  void Put(unsigned value, int nibbles) {
    for (int shift = 4 * (nibbles - 1); shift >= 0; shift -= 4) {
      const unsigned nibble = value >> shift & 0xF;
      if (half_) {
        bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | nibble);
      } else {
        bytes_.push_back(static_cast<std::uint8_t>(nibble << 4));
      }
      half_ = !half_;
    }
  }

 private:
  Bytes& bytes_;
  bool half_ = false;
};

class NibbleReader {
 public:
  explicit NibbleReader(ByteView bytes) : bytes_(bytes) {}

  bool AtEnd() const { return at_ / 2 >= bytes_.size(); }
  std::size_t BytesUsed() const { return std::min((at_ + 1) / 2, bytes_.size()); }

  // 0 beyond the end.
  unsigned Next() {
    if (AtEnd()) return 0;
    const unsigned byte = bytes_[at_ / 2];
    return at_++ % 2 == 0 ? byte >> 4 : byte & 0xF;
  }

 private:
  ByteView bytes_;
  std::size_t at_ = 0;
};

int NibblesFor(std::size_t length) { return length < 4 ? 1 : length < 16 ? 2 : length < 64 ? 3 : 4; }

void EncodeRow(std::span<const std::uint8_t> row, Bytes& code) {
  NibbleWriter out(code);
  for (std::size_t x = 0; x < row.size();) {
    const unsigned color = row[x];
    const auto begin = row.begin() + static_cast<std::ptrdiff_t>(x);
    const auto run =
        static_cast<std::size_t>(std::find_if(begin, row.end(), [&](auto p) { return p != color; }) - begin);
    if (run > kLongestRun && x + run == row.size()) {
      out.Put(color, 4);
      return;
    }
    const std::size_t length = std::min(run, kLongestRun);
    out.Put(static_cast<unsigned>(length) << 2 | color, NibblesFor(length));
    x += length;
  }
}

// Returns the number of bytes used.
std::size_t DecodeRow(ByteView code, std::span<std::uint8_t> row) {
  NibbleReader in(code);
  std::size_t x = 0;
  while (x < row.size() && !in.AtEnd()) {
    // Every two leading zero bits mean one more nibble.
    unsigned value = in.Next();
    for (unsigned least = 0x4; value < least && least <= 0x40; least <<= 2) value = value << 4 | in.Next();
    const std::size_t length = value < 4 ? row.size() : value >> 2;
    const std::size_t end = std::min(row.size(), x + length);
    std::fill(row.begin() + static_cast<std::ptrdiff_t>(x), row.begin() + static_cast<std::ptrdiff_t>(end),
              static_cast<std::uint8_t>(value & 3));
    x = end;
  }
  std::fill(row.begin() + static_cast<std::ptrdiff_t>(x), row.end(), std::uint8_t{0});
  return in.BytesUsed();
}

int FirstRow(Field field) { return field == Field::Even ? 0 : 1; }

}  // namespace

void EncodeField(const SubtitlePicture& picture, Field field, Bytes& code) {
  for (int y = FirstRow(field); y < picture.height; y += 2) EncodeRow(picture.Row(y), code);
}

std::size_t DecodeField(ByteView code, Field field, SubtitlePicture& picture) {
  std::size_t used = 0;
  for (int y = FirstRow(field); y < picture.height; y += 2) used += DecodeRow(code.subspan(used), picture.Row(y));
  return used;
}

}  // namespace captoria
