// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A BMP file with a colour table: 1, 4 or 8 bits a pixel, not compressed, rows from the bottom or from the top.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/color.h"
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

}  // namespace captoria
