// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The pieces that a RIFF file consists of, and reading them one after the other from a file of any size.
#pragma once

#include <cstdint>
#include <string>

#include "base/bytes.h"
#include "base/result.h"
#include "platform/input_file.h"

namespace captoria {

// Four letters as a number; the first letter is in the lowest byte.
using FourCc = std::uint32_t;

constexpr FourCc MakeFourCc(const char (&letters)[5]) {
  FourCc code = 0;
  for (int i = 3; i >= 0; --i) code = code << 8 | static_cast<unsigned char>(letters[i]);
  return code;
}
constexpr char LetterOf(FourCc code, int index) { return static_cast<char>(code >> (8 * index) & 0xFF); }
std::string TextOf(FourCc code);

// Whether all four are printable ASCII characters, as in every valid piece.
bool IsPrintable(FourCc code);

// The header of a piece.
struct RiffHeader {
  static constexpr std::size_t kSize = 8;
  static constexpr std::size_t kListSize = 12;

  FourCc id = 0;
  std::uint32_t size = 0;  // of the data
  FourCc type = 0;         // the first four bytes of the data; the type of a LIST or RIFF

  // `bytes` must contain at least 8 bytes. The type is 0 if it is missing.
  static RiffHeader Parse(ByteView bytes);
  bool IsList() const { return id == MakeFourCc("LIST"); }
};

// The position of the next piece after a piece at `position` with `size` bytes of data, including the pad byte.
constexpr std::uint64_t AfterPiece(std::uint64_t position, std::uint32_t size) {
  return position + RiffHeader::kSize + size + (size & 1);
}

// A part of the file in memory. Reading forwards in small steps takes one system call for every `read_ahead` bytes.
class FileWindow {
 public:
  explicit FileWindow(const InputFile& file) : file_(file) {}

  // `count` bytes at `position`, fewer at the end of the file; valid until the next call. If they are not in memory
  // yet, reads `read_ahead` bytes, or `count` if that is more.
  Result<ByteView> At(std::uint64_t position, std::size_t count, std::size_t read_ahead);

  // Fills `to` with the bytes at `position`. Bytes that are not in memory are read without keeping them. Damaged if the
  // file ends too early.
  Result<void> ReadExactly(std::uint64_t position, std::span<std::uint8_t> to) const;

 private:
  const InputFile& file_;
  std::uint64_t begin_ = 0;
  std::size_t filled_ = 0;
  bool reaches_end_ = false;
  Bytes buffer_;
};

}  // namespace captoria
