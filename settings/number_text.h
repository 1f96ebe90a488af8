// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Numbers as settings and fields hold them: texts, read as far as they make sense and never refused. The decimal point
// is "." in every locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace captoria {

// The longest number behind leading blanks: digits with optional sign, point and exponent. "40abc" is 40, "" is 0. A
// number beyond a double becomes the largest one, one too small becomes 0.
double NumberOfText(std::string_view text);

// Whether the whole text, blanks around it apart, is a number.
bool IsNumber(std::string_view text);

// The whole number that leads the text: optional sign and digits; "12.75" is 12. Beyond an int it is the nearest int.
int IntegerOfText(std::string_view text);

// The nearest whole number, of two equally near ones the even one; beyond an int it is the nearest int.
int RoundToInt(double number);

// On when the number of the text is not 0; so "True" is off.
bool BooleanOfText(std::string_view text);

// Rounded, and brought into 0 to 255.
std::uint8_t ByteOfText(std::string_view text);

// The shortest decimal text that reads back as the same number: "22", "12.75". An exponent is written only beyond 15
// digits.
std::string TextOfNumber(double number);
std::string TextOfNumber(float number);

// "-1" or "0".
std::string TextOfBoolean(bool value);

}  // namespace captoria
