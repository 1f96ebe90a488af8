// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/frame_place.h"

#include <gtest/gtest.h>

namespace captoria {
namespace {

struct Place {
  const char* name;
  int hor_pos;
  int vert_pos;
  const char* tag;
  int lines;
  int width;
  Point expected;
};

class FramePlaces : public testing::TestWithParam<Place> {};

TEST_P(FramePlaces, KeepTheBitmapOnTheFrame) {
  TrackStyle style;
  style.HorPos = GetParam().hor_pos;
  style.VertPos = GetParam().vert_pos;
  const Point place = PlaceOnFrame({720, 576}, style, GetParam().tag, GetParam().lines, 26, GetParam().width);
  EXPECT_EQ(place.x, GetParam().expected.x);
  EXPECT_EQ(place.y, GetParam().expected.y);
}

INSTANTIATE_TEST_SUITE_P(Cues, FramePlaces,
                         testing::Values(Place{"TwoLinesCentred", 0, 40, "", 2, 412, {154, 469}},
                                         Place{"OddRestIsHalvedDownwards", 0, 40, "", 1, 413, {153, 495}},
                                         Place{"AsWideAsTheFrame", 100, 40, "", 1, 720, {0, 495}},
                                         Place{"FarLeft", -200, 40, "", 1, 700, {0, 495}},
                                         Place{"FarRight", 200, 40, "", 1, 400, {320, 495}},
                                         Place{"AboveTheFrame", 0, 5000, "", 1, 400, {160, 0}},
                                         Place{"OwnPosition", 0, 40, "18|250c", 1, 400, {160, 285}},
                                         Place{"OwnAlignmentAlone", 0, 40, "|r", 1, 400, {160, 495}}),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(ListedHeight, OnlyOneHundredIsListedLower) {
  EXPECT_EQ(ListedHeight(98), 98);
  EXPECT_EQ(ListedHeight(100), 98);
  EXPECT_EQ(ListedHeight(102), 102);
}

}  // namespace
}  // namespace captoria
