// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Checks UTF-8 byte by byte, as strictly as Unicode 15.0 table 3-7: no overlong form, no surrogate, nothing above
// U+10FFFF.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace captoria {

// U+FFFD, which replaces a byte that does not decode.
inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

// The length of the character at `at`, 1 to 4 bytes; 0 if the bytes there are invalid. `at` must be below the size.
std::size_t Utf8CharacterLength(std::string_view text, std::size_t at);

// The position of the first byte at or after `from` that is not ASCII, or the end. Skips plain text eight bytes at a
// time.
std::size_t EndOfAscii(std::string_view text, std::size_t from);

// The usual name of a character, "U+00E9".
std::string CodePointName(char32_t character);

// Counts for a whole text.
struct Utf8Census {
  std::size_t multibyte = 0;  // characters beyond ASCII
  std::size_t invalid = 0;    // bytes that belong to no character
};
Utf8Census TakeUtf8Census(std::string_view text);

}  // namespace captoria
