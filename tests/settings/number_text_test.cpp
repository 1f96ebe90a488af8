// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace captoria {
namespace {

constexpr double kHuge = std::numeric_limits<double>::max();

struct Reading {
  const char* name;
  std::string text;
  double number;
};

class NumberReading : public testing::TestWithParam<Reading> {};

TEST_P(NumberReading, TakesTheLeadingNumber) { EXPECT_EQ(NumberOfText(GetParam().text), GetParam().number); }

INSTANTIATE_TEST_SUITE_P(
    Texts, NumberReading,
    testing::Values(Reading{"Empty", "", 0}, Reading{"Word", "True", 0}, Reading{"DigitsThenLetters", "40abc", 40},
                    Reading{"LeadingBlanks", " \t 12.75 ", 12.75}, Reading{"Plus", "+5", 5},
                    Reading{"TwoSigns", "+-5", 0}, Reading{"SignAlone", "-", 0}, Reading{"PointAlone", ".", 0},
                    Reading{"PointFirst", "-.5", -0.5}, Reading{"PointLast", "5.", 5},
                    Reading{"SecondPointEnds", "1.2.3", 1.2}, Reading{"CommaEnds", "12,75", 12},
                    Reading{"Exponent", "1.5E2x", 150}, Reading{"ExponentWithoutDigits", "2e+", 2},
                    Reading{"Infinity", "inf", 0}, Reading{"NotANumber", "nan", 0}, Reading{"Hexadecimal", "0x10", 0},
                    Reading{"TooLarge", "1e999", kHuge}, Reading{"TooLargeNegative", "-1e99999999999999999999", -kHuge},
                    Reading{"TooSmall", "1e-999", 0}, Reading{"ManyDigits", "1" + std::string(5000, '0'), kHuge},
                    Reading{"ManyZerosBehindThePoint", "0." + std::string(5000, '0') + "1", 0},
                    Reading{"ManyZerosAgainstALargeExponent", "0." + std::string(5000, '0') + "1e9000", kHuge}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(NumberText, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundToInt(0.5), 0);
  EXPECT_EQ(RoundToInt(1.5), 2);
  EXPECT_EQ(RoundToInt(-2.5), -2);
  EXPECT_EQ(RoundToInt(12.6), 13);
  EXPECT_EQ(RoundToInt(kHuge), std::numeric_limits<int>::max());
  EXPECT_EQ(RoundToInt(-kHuge), std::numeric_limits<int>::min());
}

TEST(NumberText, NumbersAreWrittenAsShortAsTheyReadBack) {
  EXPECT_EQ(TextOfNumber(22.0), "22");
  EXPECT_EQ(TextOfNumber(9000.0F), "9000");
  EXPECT_EQ(TextOfNumber(0.1F), "0.1");
  EXPECT_EQ(TextOfNumber(100000.0), "100000");
  EXPECT_EQ(TextOfNumber(-0.0), "0");
  std::mt19937 random(7);
  std::uniform_int_distribution<int> exponent(-300, 300);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  for (int i = 0; i < 2000; ++i) {
    const double number = mantissa(random) * std::pow(10.0, exponent(random));
    EXPECT_EQ(NumberOfText(TextOfNumber(number)), number) << TextOfNumber(number);
  }
}

}  // namespace
}  // namespace captoria
