// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Colours as numbers: red in the low byte, then green, then blue. 16711680 is pure blue.
#pragma once

#include <cstdint>

#include "settings/track_style.h"

namespace captoria {

using ColorValue = std::int32_t;

// A number with its highest bit set names a system colour: the low byte is its place in the system's list. Gives the
// RGB value of both kinds, and -1 for what is neither.
ColorValue TranslateColor(ColorValue color);

// The three bytes of `color`; what stands above them is left out.
Color SplitColour(ColorValue color);

constexpr ColorValue ValueOf(const Color& color) { return color.red | color.green << 8 | color.blue << 16; }

}  // namespace captoria
