// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/ascii.h"

namespace captoria {
namespace {

struct ReadNumber {
  double value = 0;
  std::size_t length = 0;  // of the text that was read; 0 if there is no number
};

// The power of ten of the first digit that is not 0, for a number that does not fit into a double.
double Magnitude(std::string_view number) {
  const auto exponent_at = number.find_first_of("eE");
  const std::string_view digits = number.substr(0, exponent_at);
  double exponent = 0;
  if (exponent_at != number.npos) {
    for (const char c : number.substr(exponent_at + 1)) exponent = IsDigit(c) ? exponent * 10 + (c - '0') : exponent;
    if (number[exponent_at + 1] == '-') exponent = -exponent;
  }
  const auto point = std::min(digits.find('.'), digits.size());
  const auto first = std::min(digits.find_first_of("123456789"), digits.size());
  return exponent + static_cast<double>(point) - static_cast<double>(first);
}

ReadNumber Read(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  const std::size_t sign = trimmed.starts_with('+') || trimmed.starts_with('-') ? 1 : 0;
  const std::string_view number = trimmed.substr(sign);
  // A digit must follow, as std::from_chars also accepts names such as "inf".
  const std::size_t first_digit = number.starts_with('.') ? 1 : 0;
  if (number.size() <= first_digit || !IsDigit(number[first_digit])) return {};

  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  const auto length = static_cast<std::size_t>(end - number.data());
  if (error == std::errc::result_out_of_range) {
    value = Magnitude(number.substr(0, length)) > 0 ? std::numeric_limits<double>::max() : 0;
  }
  return {sign == 1 && trimmed.front() == '-' ? -value : value, sign + length};
}

template <typename Number>
std::string ShortestText(Number number) {
  if (number == 0 || !std::isfinite(number)) return "0";
  const bool ordinary = std::abs(number) < Number(1e15) && std::abs(number) >= Number(1e-15);
  std::array<char, 64> text;
  const auto end = ordinary ? std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed)
                            : std::to_chars(text.begin(), text.end(), number);
  return {text.begin(), end.ptr};
}

}  // namespace

double NumberOfText(std::string_view text) { return Read(text).value; }

bool IsNumber(std::string_view text) {
  const auto length = Read(text).length;
  return length > 0 && length == Trim(text).size();
}

int IntegerOfText(std::string_view text) {
  text = Trim(text);
  if (text.starts_with('+') && text.size() > 1 && IsDigit(text[1])) text.remove_prefix(1);
  int value = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc::result_out_of_range) {
    value = text.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  return value;
}

int RoundToInt(double number) {
  using Int = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<double>(std::nearbyint(number), Int::min(), Int::max()));
}

bool BooleanOfText(std::string_view text) { return NumberOfText(text) != 0; }

std::uint8_t ByteOfText(std::string_view text) {
  return static_cast<std::uint8_t>(std::clamp(RoundToInt(NumberOfText(text)), 0, 255));
}

std::string TextOfNumber(double number) { return ShortestText(number); }
std::string TextOfNumber(float number) { return ShortestText(number); }

std::string TextOfBoolean(bool value) { return value ? "-1" : "0"; }

}  // namespace captoria
