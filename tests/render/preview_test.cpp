// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/preview.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace captoria {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

struct Place {
  const char* name;
  int bitmap_width;
  int bitmap_height;
  int hor_pos;
  int value;
  int maximum;
  Point expected;
};

class PreviewPlaces : public testing::TestWithParam<Place> {};

TEST_P(PreviewPlaces, FollowTheSliders) {
  const Place& row = GetParam();
  EXPECT_EQ(PlaceOnPreview({720, 576}, {row.bitmap_width, row.bitmap_height}, row.hor_pos, row.value, row.maximum),
            row.expected);
}

INSTANTIATE_TEST_SUITE_P(Bitmaps, PreviewPlaces,
                         testing::Values(Place{"OnTheBottomEdge", 400, 76, 0, 0, 500, {160, 500}},
                                         Place{"UnderTheTopEdge", 400, 76, 0, 500, 500, {160, 0}},
                                         Place{"ExactlyAsFarUpAsTheSliderSays", 400, 76, 0, 40, 500, {160, 460}},
                                         Place{"OddRestIsHalvedDownwards", 413, 76, 0, 0, 500, {153, 500}},
                                         Place{"OddExcessIsHalvedTowardsZero", 723, 76, 2, 0, 500, {-3, 500}},
                                         Place{"HalfGoesDownToTheEven", 400, 571, 0, 1, 2, {160, 3}},
                                         Place{"HalfGoesUpToTheEven", 400, 573, 0, 1, 2, {160, 1}},
                                         Place{"LessThanHalfIsCut", 400, 571, 0, 49, 100, {160, 3}},
                                         Place{"MoreThanHalfGoesUp", 400, 571, 0, 51, 100, {160, 2}},
                                         Place{"FarLeftStopsAtTheEdge", 700, 76, -200, 0, 500, {0, 500}},
                                         Place{"FarRightStopsAtTheEdge", 400, 76, 200, 0, 500, {320, 500}},
                                         Place{"WiderThanThePictureShowsItsEnd", 760, 76, -200, 0, 500, {-40, 500}},
                                         Place{"HigherThanThePicture", 400, 581, 0, 1, 2, {160, -3}},
                                         Place{"BeyondTheSlider", 400, 76, 0, 600, 500, {160, -100}},
                                         Place{"NoRange", 400, 76, 0, 40, 0, {160, 500}},
                                         Place{"OwnPositionBeyondAllMeasure", 400, 76, 0, kMost, 1, {160, -kMost - 1}},
                                         Place{"OffsetBeyondAllMeasure", 400, 76, kMost, 0, 500, {320, 500}}),
                         [](const auto& row) { return std::string{row.param.name}; });

constexpr Color kBack{3, 2, 1}, kText{0, 0, 255}, kOutline{0, 255, 0};

cDIB Drawing(const std::vector<std::string>& rows) {
  cDIB dib;
  dib.Create(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()));
  dib.SetColorInPalette16(kBack, 0);
  dib.SetColorInPalette16(kText, 1);
  dib.SetColorInPalette16(kOutline, 2);
  dib.SetColorInPalette16(kBack, 3);  // a shadow nobody sees
  for (int y = 0; y < dib.Height(); ++y) {
    for (std::size_t x = 0; x < rows.front().size(); ++x) {
      dib.Row(y)[x] = static_cast<std::uint8_t>(rows[static_cast<std::size_t>(y)][x] - '0');
    }
  }
  return dib;
}

// Text as "T", outline as "O", background as ".", the film as " ", anything else as "?".
std::vector<std::string> Seen(const VideoFrame& frame) {
  std::vector<std::string> rows;
  for (std::size_t i = 0; i < frame.pixels.size(); i += 4) {
    if (i % (4 * static_cast<std::size_t>(frame.width)) == 0) rows.emplace_back();
    const std::vector<std::uint8_t> pixel(frame.pixels.data() + i, frame.pixels.data() + i + 4);
    const auto is = [&](std::vector<std::uint8_t> other) { return pixel == other; };
    rows.back() += is({255, 0, 0, 255})   ? 'T'
                   : is({0, 255, 0, 255}) ? 'O'
                   : is({1, 2, 3, 255})   ? '.'
                   : is({9, 9, 9, 9})     ? ' '
                                          : '?';
  }
  return rows;
}

struct Laid {
  const char* name;
  Point at;
  std::vector<std::string> expected;
};

class Overlays : public testing::TestWithParam<Laid> {};

TEST_P(Overlays, LeaveTheFilmInSightWhereTheColourIsTheBackground) {
  VideoFrame frame{.width = 6, .height = 3, .pixels = std::vector<std::uint8_t>(6 * 3 * 4, 9)};
  Overlay(frame, Drawing({"2012", "2312"}), GetParam().at, kBack);
  EXPECT_EQ(Seen(frame), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Points, Overlays,
                         testing::Values(Laid{"Inside", {1, 1}, {"      ", " O TO ", " O TO "}},
                                         Laid{"OverTheLeftTopCorner", {-2, -1}, {"TO    ", "      ", "      "}},
                                         Laid{"OverTheRightBottomCorner", {3, 2}, {"      ", "      ", "   O T"}},
                                         Laid{"RightOfIt", {6, 0}, {"      ", "      ", "      "}},
                                         Laid{"FarAboveIt", {0, -kMost - 1}, {"      ", "      ", "      "}},
                                         Laid{"FarBelowIt", {0, kMost}, {"      ", "      ", "      "}}),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(Preview, TheBitmapByItselfShowsItsBackground) {
  EXPECT_EQ(Seen(ImageOf(Drawing({"2012", "2312"}))), (std::vector<std::string>{"O.TO", "O.TO"}));
  EXPECT_TRUE(ImageOf(cDIB{}).pixels.empty());
}

}  // namespace
}  // namespace captoria
