// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads and writes integers in the byte orders of file formats.
//
// Reading past the end gives 0 and sets Failed(), so a parser can read a whole record and check once.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace captoria {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

class ByteReader {
 public:
  explicit ByteReader(ByteView bytes) : bytes_(bytes) {}

  std::uint8_t U8() { return static_cast<std::uint8_t>(Little(1)); }
  std::uint16_t U16() { return static_cast<std::uint16_t>(Little(2)); }
  std::uint32_t U32() { return static_cast<std::uint32_t>(Little(4)); }
  std::uint64_t U64() { return Little(8); }
  std::uint16_t BigU16() { return static_cast<std::uint16_t>(Big(2)); }
  std::string FourCc() {
    const ByteView four = Take(4);
    return {four.begin(), four.end()};
  }

  // The next `count` bytes, fewer at the end.
  ByteView Take(std::size_t count) {
    if (count > Left()) failed_ = true;
    const ByteView taken = bytes_.subspan(at_, std::min(count, Left()));
    at_ += taken.size();
    return taken;
  }
  void Skip(std::size_t count) { Take(count); }

  std::size_t Position() const { return at_; }
  std::size_t Left() const { return bytes_.size() - at_; }

  // Whether a read went past the end.
  bool Failed() const { return failed_; }

 private:
  std::uint64_t Little(std::size_t size) {
    std::uint64_t value = 0;
    const ByteView bytes = Take(size);
    for (std::size_t i = bytes.size(); i > 0; --i) value = value << 8 | bytes[i - 1];
    return value;
  }
  std::uint64_t Big(std::size_t size) {
    std::uint64_t value = 0;
    for (const std::uint8_t byte : Take(size)) value = value << 8 | byte;
    return value;
  }

  ByteView bytes_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

class ByteWriter {
 public:
  ByteWriter& U8(std::uint8_t value) { return Little(value, 1); }
  ByteWriter& U16(std::uint16_t value) { return Little(value, 2); }
  ByteWriter& U32(std::uint32_t value) { return Little(value, 4); }
  ByteWriter& U64(std::uint64_t value) { return Little(value, 8); }
  ByteWriter& Text(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    return *this;
  }
  ByteWriter& Append(ByteView bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
  }
  ByteWriter& Zeros(std::size_t count) {
    bytes_.resize(bytes_.size() + count);
    return *this;
  }

  std::size_t Size() const { return bytes_.size(); }
  const Bytes& Written() const { return bytes_; }
  Bytes Take() { return std::exchange(bytes_, {}); }

 private:
  ByteWriter& Little(std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i, value >>= 8) bytes_.push_back(static_cast<std::uint8_t>(value & 0xFF));
    return *this;
  }

  Bytes bytes_;
};

}  // namespace captoria
