// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/utf8.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace captoria {
namespace {

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// All exceptions in table 3-7 are limits of the second byte.
bool SecondByteFits(unsigned char first, unsigned char second) {
  switch (first) {
    case 0xE0:
      return second >= 0xA0 && second <= 0xBF;
    case 0xED:
      return second >= 0x80 && second <= 0x9F;
    case 0xF0:
      return second >= 0x90 && second <= 0xBF;
    case 0xF4:
      return second >= 0x80 && second <= 0x8F;
    default:
      return IsContinuation(second);
  }
}

std::size_t AnnouncedLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

}  // namespace

std::size_t Utf8CharacterLength(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
  const std::size_t length = AnnouncedLength(byte(0));
  if (length <= 1) return length;
  if (text.size() - at < length || !SecondByteFits(byte(0), byte(1))) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!IsContinuation(byte(i))) return 0;
  }
  return length;
}

std::size_t EndOfAscii(std::string_view text, std::size_t from) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::uint64_t eight;
  while (from + sizeof eight <= text.size()) {
    std::memcpy(&eight, text.data() + from, sizeof eight);
    if ((eight & kHighBits) != 0) break;
    from += sizeof eight;
  }
  while (from < text.size() && static_cast<unsigned char>(text[from]) < 0x80) ++from;
  return from;
}

std::string CodePointName(char32_t character) {
  std::array<char, 16> name{};
  std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(character));
  return name.data();
}

Utf8Census TakeUtf8Census(std::string_view text) {
  Utf8Census census;
  for (std::size_t at = EndOfAscii(text, 0); at < text.size(); at = EndOfAscii(text, at)) {
    const std::size_t length = Utf8CharacterLength(text, at);
    ++(length == 0 ? census.invalid : census.multibyte);
    at += length == 0 ? 1 : length;
  }
  return census;
}

}  // namespace captoria
