// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// BMP files with a colour table. Read: 1, 4 or 8 bits a pixel, not compressed, rows from the bottom or from the top.
// Written: 4 bits a pixel, rows from the bottom.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/color.h"
#include "base/geometry.h"
#include "base/result.h"

namespace captoria {

struct BmpFile {
  int width = 0;  // 1 to 16384, as is the height
  int height = 0;
  std::vector<Color> colors;         // 1 to 256 entries
  std::vector<std::uint8_t> pixels;  // entry numbers below colors.size(), rows from the top
};

// Beyond the errors of reading: Damaged when the file is no BMP or is not whole, Unsupported for bitmaps without a
// colour table and for compressed ones, TooLarge for a side beyond 16384 or more than 16 Mi pixels.
Result<BmpFile> ReadBmp(const std::string& path);

// The same for bytes in memory; `name` stands in the messages.
Result<BmpFile> ParseBmp(ByteView bytes, const std::string& name);

// A picture to be written.
struct BmpPicture {
  Size size;  // both sides at least 1
  std::span<const Color, 16> colors;
  std::span<const std::uint8_t> pixels;  // entry numbers below 16, rows from the top
};

// Replaces the file `path`, whole or not at all.
Result<void> WriteBmp(const std::string& path, const BmpPicture& picture);

// The same in memory.
Bytes FormatBmp(const BmpPicture& picture);

}  // namespace captoria
