// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Converts UTF-8 text in any script to lower case, character by character: "ΟΔΟΣ" becomes "οδοσ" and "STRASSE" keeps
// its seven letters, so the number of characters never changes.
//
// Characters without a lower case, and bytes that are not valid UTF-8, stay unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/environment.h"

namespace captoria {

// Turkish and Azeri have two letters i, each with its own capital: I is the capital of ı, and İ of i. In other
// languages i is the lower case of both capitals.
enum class CaseRule { Common, Turkish };

// The rule for the language of the user's locale: the first of LC_ALL, LC_CTYPE and LANG that is set.
CaseRule CaseRuleOf(const Environment& environment);

// A character and its length in bytes. A byte that is not valid UTF-8 counts as a character with a value above
// U+10FFFF.
struct TextCharacter {
  char32_t value;
  std::size_t length;
};

// The first and the last character of `text`, which must not be empty.
TextCharacter FirstCharacter(std::string_view text);
TextCharacter LastCharacter(std::string_view text);

char32_t LowerCase(char32_t character, CaseRule rule);
std::string LowerCase(std::string_view text, CaseRule rule);

}  // namespace captoria
