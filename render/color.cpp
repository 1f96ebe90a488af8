// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/color.h"

#include <array>

namespace captoria {
namespace {

constexpr ColorValue kUntranslatable = -1;

// The system colours in the order of their numbers, as a desktop in its first theme shows them: scroll bar, desktop,
// title bars, menu, window, frames and texts, buttons and their edges, tool tips (Microsoft, GetSysColor, "Windows
// classic" values).
constexpr std::array<ColorValue, 25> kSystemColors{
    0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000, 0x000000,
    0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0x6A240A, 0xFFFFFF, 0xC8D0D4, 0x808080, 0x808080,
    0x000000, 0xC8D0D4, 0xFFFFFF, 0x404040, 0xC8D0D4, 0x000000, 0xE1FFFF,
};

}  // namespace

ColorValue TranslateColor(ColorValue color) {
  const auto bits = static_cast<std::uint32_t>(color);
  if (bits <= 0xFFFFFF) return color;
  const std::uint32_t index = bits & 0x7FFFFFFF;
  if (bits < 0x80000000 || index >= kSystemColors.size()) return kUntranslatable;
  return kSystemColors[index];
}

Color SplitColour(ColorValue color) {
  const auto byte = [color](int shift) { return static_cast<std::uint8_t>(color >> shift & 0xFF); };
  return {byte(0), byte(8), byte(16)};
}

}  // namespace captoria
