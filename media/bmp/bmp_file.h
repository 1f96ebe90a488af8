// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads and writes BMP files with a colour table. Files of 1, 4 or 8 bits per pixel can be read if they are not
// compressed, with rows from the bottom or from the top. Written files have 4 bits per pixel and rows from the bottom.
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

// Besides the errors of reading a file: Damaged if it is not a BMP file or is incomplete, Unsupported if the bitmap has
// no colour table or is compressed, TooLarge if a side is above 16384 or there are more than 16 Mi pixels.
Result<BmpFile> ReadBmp(const std::string& path);

// The same for bytes in memory. Messages contain `name`.
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
