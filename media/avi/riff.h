// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The pieces that a RIFF file is made of, and reading them one after the other out of a file of any size.
#pragma once

#include <cstdint>
#include <string>

#include "base/bytes.h"
#include "base/result.h"
#include "platform/input_file.h"

namespace captoria {

// Four letters as they are compared: the first one in the lowest byte.
using FourCc = std::uint32_t;

constexpr FourCc MakeFourCc(const char (&letters)[5]) {
  FourCc code = 0;
  for (int i = 3; i >= 0; --i) code = code << 8 | static_cast<unsigned char>(letters[i]);
  return code;
}
constexpr char LetterOf(FourCc code, int index) { return static_cast<char>(code >> (8 * index) & 0xFF); }
std::string TextOf(FourCc code);

// Whether all four are letters, digits, blanks or signs of ASCII, as in every piece that software writes.
bool IsPrintable(FourCc code);

// The beginning of a piece.
struct RiffHeader {
  static constexpr std::size_t kSize = 8;
  static constexpr std::size_t kListSize = 12;

  FourCc id = 0;
  std::uint32_t size = 0;  // of the data
  FourCc type = 0;         // the data's first four bytes; what a LIST or RIFF is one of

  // `bytes` are at least 8; a type that is not there is 0.
  static RiffHeader Parse(ByteView bytes);
  bool IsList() const { return id == MakeFourCc("LIST"); }
};

// Where the piece behind a piece of `size` bytes at `position` begins: after the byte that makes it even.
constexpr std::uint64_t AfterPiece(std::uint64_t position, std::uint32_t size) {
  return position + RiffHeader::kSize + size + (size & 1);
}

// A part of the file in memory. Reading forwards in small steps costs one call of the system per `read_ahead` bytes.
class FileWindow {
 public:
  explicit FileWindow(const InputFile& file) : file_(file) {}

  // `count` bytes at `position`, fewer at the end of the file; valid until the next call. What is not in memory yet is
  // read with `read_ahead` bytes, or `count` when that is more.
  Result<ByteView> At(std::uint64_t position, std::size_t count, std::size_t read_ahead);

  // Fills `to` with what lies at `position`; of that, what is not in memory is read and not kept. Damaged when the file
  // ends before.
  Result<void> ReadExactly(std::uint64_t position, std::span<std::uint8_t> to) const;

 private:
  const InputFile& file_;
  std::uint64_t begin_ = 0;
  std::size_t filled_ = 0;
  bool reaches_end_ = false;
  Bytes buffer_;
};

}  // namespace captoria
