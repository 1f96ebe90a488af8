// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/text_case.h"

#include <glib.h>

#include <algorithm>
#include <array>

#include "base/ascii.h"
#include "base/utf8.h"

namespace captoria {
namespace {

constexpr char32_t kPlainEnd = 0x80;  // after the last ASCII character
constexpr char32_t kStrayByte = 0x110000;
constexpr char32_t kDotlessSmallI = 0x131;
constexpr std::size_t kLongest = 4;  // bytes in a character

unsigned char ByteOf(char c) { return static_cast<unsigned char>(c); }

}  // namespace

CaseRule CaseRuleOf(const Environment& environment) {
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const std::string locale = environment(name).value_or("");
    if (locale.empty()) continue;
    const std::string language = LowerAscii(std::string_view{locale}.substr(0, locale.find_first_of("_.@-")));
    return language == "tr" || language == "az" ? CaseRule::Turkish : CaseRule::Common;
  }
  return CaseRule::Common;
}

TextCharacter FirstCharacter(std::string_view text) {
  const unsigned char first = ByteOf(text.front());
  if (first < kPlainEnd) return {first, 1};
  const std::size_t length = Utf8CharacterLength(text, 0);
  if (length == 0) return {kStrayByte + first, 1};
  return {g_utf8_get_char(text.data()), length};
}

TextCharacter LastCharacter(std::string_view text) {
  const unsigned char last = ByteOf(text.back());
  if (last < kPlainEnd) return {last, 1};
  for (std::size_t length = 2; length <= std::min(kLongest, text.size()); ++length) {
    const std::size_t at = text.size() - length;
    if (Utf8CharacterLength(text, at) == length) return FirstCharacter(text.substr(at));
  }
  return {kStrayByte + last, 1};
}

char32_t LowerCase(char32_t character, CaseRule rule) {
  if (rule == CaseRule::Turkish && character == U'I') return kDotlessSmallI;
  if (character < kPlainEnd) return ByteOf(LowerAscii(static_cast<char>(character)));
  return g_unichar_tolower(character);
}

std::string LowerCase(std::string_view text, CaseRule rule) {
  std::string lower;
  lower.reserve(text.size());
  while (!text.empty()) {
    const TextCharacter character = FirstCharacter(text);
    if (character.value >= kStrayByte) {
      lower += text.front();
    } else {
      std::array<char, 6> bytes;  // GLib writes at most six
      const int written = g_unichar_to_utf8(LowerCase(character.value, rule), bytes.data());
      lower.append(bytes.data(), static_cast<std::size_t>(written));
    }
    text.remove_prefix(character.length);
  }
  return lower;
}

}  // namespace captoria
