// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Numbers in settings and input fields. A text is read as far as it is a number; reading never fails. The decimal point
// is "." in every locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace captoria {

// The longest number after leading blanks: digits with optional sign, point and exponent. "40abc" is 40, "" is 0. A
// number too large for a double becomes the largest double, and one too small becomes 0.
double NumberOfText(std::string_view text);

// Whether the whole text, without surrounding blanks, is a number.
bool IsNumber(std::string_view text);

// The whole number at the start of the text: optional sign and digits; "12.75" is 12. A number too large for an int
// becomes the nearest int.
int IntegerOfText(std::string_view text);

// The nearest whole number, with halves to the even neighbour. A number too large for an int becomes the nearest int.
int RoundToInt(double number);

// On if the number at the start of the text is not 0, so "True" is off.
bool BooleanOfText(std::string_view text);

// Rounded and clamped to 0 to 255.
std::uint8_t ByteOfText(std::string_view text);

// The shortest decimal text that reads back as the same number: "22", "12.75". An exponent is written only beyond 15
// digits.
std::string TextOfNumber(double number);
std::string TextOfNumber(float number);

// "-1" or "0".
std::string TextOfBoolean(bool value);

}  // namespace captoria
