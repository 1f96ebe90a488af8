// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/dib.h"

#include <gtest/gtest.h>

#include "render/coverage.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

TEST(Dib, RefusesWhatIsNoBitmap) {
  cDIB dib;
  EXPECT_FALSE(dib.Create(0, 10));
  EXPECT_FALSE(dib.Create(10, cDIB::kLongestSide + 1));
  const TestFolder folder;
  EXPECT_FALSE(dib.Save(folder.File("a.bmp")));
  ASSERT_TRUE(dib.Create(2, 2));
  EXPECT_FALSE(dib.Save(folder.File("none/a.bmp")));
  EXPECT_FALSE(FileExists(folder.File("a.bmp")));
}

TEST(Dib, DrawsInTheNearestOfTheFirstFourColours) {
  cDIB dib;
  dib.Create(1, 1);
  dib.SetColorInPalette16({0, 0, 255}, 0);
  dib.SetColorInPalette16({255, 255, 255}, 1);
  dib.SetColorInPalette16({0, 0, 0}, 2);
  dib.SetColorInPalette16({255, 0, 0}, 3);
  dib.SetColorInPalette16({70, 70, 70}, 4);
  EXPECT_EQ(dib.NearestEntry({240, 240, 240}), 1);
  EXPECT_EQ(dib.NearestEntry({240, 0, 16}), 3);
  EXPECT_EQ(dib.NearestEntry({70, 70, 70}), 2) << "the greys are not meant to be used";
}

TEST(Coverage, SpreadIsTheUnionOfAllMoves) {
  const Rect area{-3, 2, 14, 11};
  Coverage coverage(area);
  const std::uint8_t bits[] = {0b10010000, 0b01000001, 0b00000000, 0b10000000};
  coverage.AddBits(bits, 9, 2, 2, -4, 3);  // partly outside
  coverage.AddRectangle({5, 6, 8, 40});
  const Rect everything{-20, -20, 40, 40};
  for (const int width : {0, 1, 4}) {
    cDIB spread, moved;
    spread.Create(30, 30);
    moved.Create(30, 30);
    for (cDIB* dib : {&spread, &moved}) dib->SetColorInPalette16({255, 255, 255}, 1);
    coverage.Spread(width).Clipped(everything, 8, 5).Paint(spread, 1);
    for (int dx = -width; dx <= width; ++dx) {
      for (int dy = -width; dy <= width; ++dy) coverage.Clipped(everything, 8 + dx, 5 + dy).Paint(moved, 1);
    }
    for (int y = 0; y < 30; ++y) EXPECT_TRUE(std::ranges::equal(spread.Row(y), moved.Row(y))) << width << " " << y;
  }
}

TEST(Colors, HaveRedInTheLowByteOfTheirNumber) {
  EXPECT_EQ(ColorNumber({0x56, 0x34, 0x12}), 0x123456);
  EXPECT_EQ(SplitColour(0x7F123456), (Color{0x56, 0x34, 0x12})) << "the highest byte is ignored";
}

}  // namespace
}  // namespace captoria
