// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Lower case of UTF-8 text in any script, one character for one: "ΟΔΟΣ" is "οδοσ" and "STRASSE" stays seven letters, so
// what is counted before is counted behind.
//
// Bytes that belong to no character stay as they are, and so does whatever has no other case.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/environment.h"

namespace captoria {

// Turkish and Azeri have two letters i and write both in both cases: I is the capital of ı, İ that of i. Elsewhere i is
// the lower case of both capitals.
enum class CaseRule { Common, Turkish };

// The rule of the language the user's locale is in: LC_ALL says it, else LC_CTYPE, else LANG.
CaseRule CaseRuleOf(const Environment& environment);

// A character of a text and the bytes it takes there. A byte that belongs to none is one by itself, with a value above
// U+10FFFF.
struct TextCharacter {
  char32_t value;
  std::size_t length;
};

// The characters at the two ends of `text`, which is not empty.
TextCharacter FirstCharacter(std::string_view text);
TextCharacter LastCharacter(std::string_view text);

char32_t LowerCase(char32_t character, CaseRule rule);
std::string LowerCase(std::string_view text, CaseRule rule);

}  // namespace captoria
