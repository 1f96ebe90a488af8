// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A colour, and the number that settings files and colour dialogs use for it: red + 256 x green + 65536 x blue, so
// 16711680 is pure blue.
#pragma once

#include <cstdint>

namespace captoria {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

constexpr std::int32_t ColorNumber(const Color& color) { return color.red | color.green << 8 | color.blue << 16; }

// The lower three bytes of `number`; the highest byte is ignored.
constexpr Color SplitColour(std::int32_t number) {
  const auto byte = [number](int shift) { return static_cast<std::uint8_t>(number >> shift & 0xFF); };
  return {byte(0), byte(8), byte(16)};
}

}  // namespace captoria
