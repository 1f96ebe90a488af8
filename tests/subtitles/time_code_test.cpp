// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/time_code.h"

#include <gtest/gtest.h>

#include <limits>

namespace captoria {
namespace {

struct TimeRow {
  const char* name;
  std::string_view text;
  std::optional<int> milliseconds;
};

class TimeCode : public testing::TestWithParam<TimeRow> {};

TEST_P(TimeCode, IsReadStrictly) {
  Milliseconds time{-1};
  const auto fault = ReadTimeCode(GetParam().text, time);
  EXPECT_EQ(fault.has_value(), !GetParam().milliseconds.has_value());
  EXPECT_EQ(time.count(), GetParam().milliseconds.value_or(-1));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TimeCode,
    testing::Values(TimeRow{"Full", "00:01:02,500", 62'500}, TimeRow{"OneDigitParts", " 1:2:3,4\t", 3'723'400},
                    TimeRow{"FractionNotMilliseconds", "0:0:1,05", 1'050},
                    TimeRow{"BlanksAroundTheComma", "00:00:01 , 5", 1'500},
                    TimeRow{"CoordinatesIgnored", "00:01:02,000 X1:10", 62'000},
                    TimeRow{"NoFractionDigits", "00:00:01,", 1'000}, TimeRow{"HalfUpwards", "00:00:01,0005", 1'001},
                    TimeRow{"BelowHalf", "00:00:01,00049999999999999999", 1'000},
                    TimeRow{"RoundingCarriesIntoTheHour", "00:59:59,9996", 3'600'000},
                    TimeRow{"LastOfTheDay", "23:59:59,999", 86'399'999}, TimeRow{"Hour24", "24:00:00,000", {}},
                    TimeRow{"Minute60", "00:60:00,000", {}}, TimeRow{"PointForComma", "00:00:01.500", {}},
                    TimeRow{"NoHours", "04:48,460", {}}, TimeRow{"FourParts", "0:0:0:1,0", {}},
                    TimeRow{"Negative", "-00:00:01,000", {}}, TimeRow{"ThreeDigits", "000:00:01,000", {}},
                    TimeRow{"EmptyPart", "00::01,000", {}}, TimeRow{"Empty", "", {}}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(TimeCode, IsWrittenWithTwoDigitsAndMoreHoursWhenNeeded) {
  EXPECT_EQ(FormatTimeCode(Milliseconds{62'005}), "00:01:02,005");
  EXPECT_EQ(FormatTimeCode(Milliseconds{360'000'000}), "100:00:00,000");
}

TEST(MakeTime, ShowsADurationWithAPoint) {
  EXPECT_EQ(MakeTime(59.7F), "00:00:59.700");
  EXPECT_EQ(MakeTime(3661.25F), "01:01:01.250");
  EXPECT_EQ(MakeTime(59.99996F), "00:01:00.000");
  EXPECT_EQ(MakeTime(-1), "00:00:00.000");
  EXPECT_EQ(MakeTime(std::numeric_limits<float>::quiet_NaN()), "00:00:00.000");
  EXPECT_EQ(MakeTime(std::numeric_limits<float>::infinity()), "00:00:00.000");
}

}  // namespace
}  // namespace captoria
