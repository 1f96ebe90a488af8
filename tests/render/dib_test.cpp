// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/dib.h"

#include <gtest/gtest.h>

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

TEST(Colors, HaveRedInTheLowByteOfTheirNumber) {
  EXPECT_EQ(ColorNumber({0x56, 0x34, 0x12}), 0x123456);
  EXPECT_EQ(SplitColour(0x7F123456), (Color{0x56, 0x34, 0x12})) << "the highest byte is ignored";
}

}  // namespace
}  // namespace captoria
