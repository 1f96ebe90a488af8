// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/placement.h"

#include <gtest/gtest.h>

#include <random>

namespace captoria {
namespace {

using enum Alignment;

struct Reading {
  const char* name;
  std::string_view tag;
  std::optional<int> position;
  std::optional<Alignment> alignment;
};

class PlacementReading : public testing::TestWithParam<Reading> {};

TEST_P(PlacementReading, GivesWhatTheCueHasOfItsOwn) {
  const Placement placement = ReadPlacement(GetParam().tag);
  EXPECT_EQ(placement.position, GetParam().position);
  EXPECT_EQ(placement.alignment, GetParam().alignment);
}

INSTANTIATE_TEST_SUITE_P(
    Tags, PlacementReading,
    testing::Values(Reading{"NothingWithoutABar", "18", {}, {}}, Reading{"LetterWithoutABar", "18c", {}, {}},
                    Reading{"LetterAlone", "|c", {}, Center}, Reading{"PositionAlone", "|55", 55, {}},
                    Reading{"PositionAndLetter", "|55r", 55, Right}, Reading{"BehindAFittingPart", "18|l", {}, Left},
                    Reading{"BarAlone", "|", {}, {}}, Reading{"BelowTheFrame", "|-5c", -5, Center},
                    Reading{"CapitalsAreNoLetters", "|7R", 7, {}}, Reading{"FirstOfTwoBarsCounts", "1|2|3c", 2, Center},
                    Reading{"PositionBeyondAnInt", "|99999999999l", {}, Left}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(Placement, AligningKeepsFittingPartAndPosition) {
  EXPECT_EQ(WithOwnAlignment("", Right), "|r");
  EXPECT_EQ(WithOwnAlignment("18|55c", Left), "18|55l");
  EXPECT_EQ(WithOwnAlignment("|55", Right), "|55r");
  EXPECT_EQ(WithOwnAlignment("12|", Center), "12|c");
  EXPECT_EQ(WithOwnAlignment("col", Right), "col|r") << "only behind the bar is it a letter of alignment";
  EXPECT_EQ(WithOwnAlignment("9|+007 l", Center), "9|+007 c") << "the position stays as it is written";
}

TEST(Placement, FittedSizeMayHaveAComma) {
  EXPECT_EQ(FittedSize("12,75|40l"), 12.75);
  EXPECT_EQ(FittedSize("18"), 18);
  EXPECT_EQ(FittedSize("|55"), 0);
  EXPECT_EQ(FittedSize(""), 0);
}

TEST(Placement, FittingAndPlacingDoNotDisturbEachOther) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> length(0, 8), letter(0, 9), position(-1000, 1000), flag(0, 1);
  for (int i = 0; i < 5000; ++i) {
    std::string tag;
    for (int n = length(random); n > 0; --n) tag += "0159|lcr,."[letter(random)];
    SCOPED_TRACE(tag);

    Placement wanted;
    if (flag(random)) wanted.position = position(random);
    if (flag(random)) wanted.alignment = AlignmentOf(letter(random) % 3);
    const std::string placed = WithPlacement(tag, wanted);
    EXPECT_EQ(ReadPlacement(placed).position, wanted.position);
    EXPECT_EQ(ReadPlacement(placed).alignment, wanted.alignment);
    EXPECT_EQ(FittingPart(placed), FittingPart(tag));

    const std::string fitted = WithFittingPart(tag, "12.5");
    EXPECT_EQ(FittedSize(fitted), 12.5);
    EXPECT_EQ(ReadPlacement(fitted).position, ReadPlacement(tag).position);
    EXPECT_EQ(ReadPlacement(fitted).alignment, ReadPlacement(tag).alignment);
    EXPECT_EQ(WithFittingPart(fitted, FittingPart(tag)), tag);
  }
}

}  // namespace
}  // namespace captoria
