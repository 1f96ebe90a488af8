// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// UTF-8 looked at byte by byte, as strict as Unicode 15.0 table 3-7: no overlong form, no surrogate, nothing above
// U+10FFFF.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace captoria {

// What a text in another encoding gets for a byte that means nothing: U+FFFD.
inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

// The length in bytes, 1 to 4, of the character at `at`; 0 when the bytes there are none. `at` is below the size.
std::size_t Utf8CharacterLength(std::string_view text, std::size_t at);

// The first place from `from` on that holds no ASCII character, or the end: how far plain text can be skipped, eight
// bytes a step.
std::size_t EndOfAscii(std::string_view text, std::size_t from);

// A character's customary name, "U+00E9".
std::string CodePointName(char32_t character);

// What a whole text holds.
struct Utf8Census {
  std::size_t multibyte = 0;  // characters beyond ASCII
  std::size_t invalid = 0;    // bytes that belong to no character
};
Utf8Census TakeUtf8Census(std::string_view text);

}  // namespace captoria
