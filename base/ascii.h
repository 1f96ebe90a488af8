// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Letters, blanks and control characters of ASCII, whatever the locale: file formats, keys and tags are compared by
// these.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace captoria {

// Ends a line in scripts, lists and the texts of cues.
inline constexpr std::string_view kCrLf = "\r\n";

constexpr char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Tabs and line ends too.
constexpr bool IsControl(char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }

constexpr bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, LowerAscii, LowerAscii);
}

constexpr bool EndsIgnoringCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

inline std::string LowerAscii(std::string_view text) {
  std::string lower{text};
  std::ranges::transform(lower, lower.begin(), [](char c) { return LowerAscii(c); });
  return lower;
}

// `text` without blanks and tabs at both ends.
constexpr std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace captoria
