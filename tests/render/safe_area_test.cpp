// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/safe_area.h"

#include <gmock/gmock.h>

#include <random>

#include "render/quick_fit.h"
#include "render/styled_text.h"
#include "settings/settings_values.h"

namespace captoria {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

SubtitleTrack TrackWith(const std::vector<std::string>& texts) {
  SubtitleTrack track;
  track.style = DefaultTrackStyle();
  track.style.font.name = "Liberation Sans";
  for (const std::string& text : texts) {
    track.cues.push_back({std::to_string(track.cues.size() + 1), "00:00:01,000", "00:00:02,000", text, {}, false});
  }
  return track;
}

class SafeArea : public testing::Test {
 protected:
  SafeAreaCheck Check(SubtitleTrack& track, int frame_width = 720) {
    SubtitleBitmap bitmap(FontCollection::Open().value(), {frame_width, {}});
    return ReCheckSrt(track, bitmap);
  }
};

const std::string kWide(40, 'W');

TEST_F(SafeArea, ThreeLinesFitAndFourDoNot) {
  SubtitleTrack track = TrackWith({"a\r\nb", "a\r\nb\r\nc", "a\r\nb\r\nc\r\nd"});
  EXPECT_EQ(Check(track).outside, 1);
  EXPECT_EQ(track.outside.at(0).row, 2u);
}

TEST_F(SafeArea, AWiderFrameTakesWiderCues) {
  SubtitleTrack track = TrackWith({std::string(25, 'W')});  // 27 pixels each at 22 points
  EXPECT_EQ(Check(track, 640).outside, 1);
  EXPECT_EQ(Check(track, 720).outside, 0);
  EXPECT_THAT(track.outside, IsEmpty());
}

TEST_F(SafeArea, ACueGetsTheLargestSizeThatFitsAndKeepsItsPlacement) {
  SubtitleTrack track = TrackWith({kWide, "short", kWide});
  track.cues[0].Tag = "|250";
  track.cues[2].Tag = "5|40l";
  EXPECT_EQ(Check(track).outside, 2);
  EXPECT_EQ(track.cues[0].Tag, "14|250") << "40 letters of 0.944 em: 19 pixels, 14 points";
  EXPECT_EQ(track.cues[1].Tag, "");
  EXPECT_EQ(track.cues[2].Tag, "14|40l");
  EXPECT_EQ(track.outside.at(0).row, 0u);
  EXPECT_EQ(track.outside.at(1).row, 2u);
  EXPECT_EQ(track.style.font.size, 22);
}

TEST_F(SafeArea, OldFittedSizesGoAndFivePointsAreTheSmallest) {
  SubtitleTrack track = TrackWith({"short", std::string(107, 'W'), std::string(95, 'W')});
  track.cues[0].Tag = "18|c";
  track.cues[1].Tag = "18";
  EXPECT_EQ(Check(track).outside, 2);
  EXPECT_EQ(track.cues[0].Tag, "|c");
  EXPECT_EQ(track.cues[1].Tag, "") << "would fit at 4 points";
  EXPECT_EQ(track.cues[2].Tag, "5") << "letters of 7 pixels";
}

TEST_F(SafeArea, FractionalSizesAreFittedFromTheirRoundedSizeDown) {
  SubtitleTrack track = TrackWith({std::string(43, 'W')});
  track.style.font.size = 12.6;  // 17 pixels, as are 12.75 and 13; 12 points are 16
  EXPECT_EQ(Check(track, 640).outside, 1);
  EXPECT_EQ(track.cues[0].Tag, "11");
}

TEST_F(SafeArea, AFontTagTakesTheShadow) {
  SubtitleTrack track = TrackWith({"a <font size=2>b", kWide});
  track.style.ShadowBevel = 4;
  EXPECT_TRUE(Check(track).has_font_tag);
  EXPECT_EQ(track.style.ShadowBevel, 0);

  SubtitleTrack open = TrackWith({"a <font size=2 b"});
  open.style.ShadowBevel = 4;
  EXPECT_FALSE(Check(open).has_font_tag);
  EXPECT_EQ(open.style.ShadowBevel, 4);
}

// The shortcut may only leave work undone, never change an answer.
TEST_F(SafeArea, WhatSurelyFitsDoesFit) {
  const std::vector<std::string> pieces{"Wide ", "ill ", "AVAVA", "Ta. ", "<b>", "</i>",
                                        "\r\n",  "Ёж ",  "Ωμ ",   "é",    "fi "};
  for (const char* font : {"Liberation Sans", "Liberation Serif", "DejaVu Sans"}) {
    std::mt19937 random(3);
    SubtitleBitmap bitmap(FontCollection::Open().value(), {720, {}});
    TrackStyle style = DefaultTrackStyle();
    style.font.name = font;
    bitmap.SetDibProp(style, 2);
    const Size area{720, bitmap.Dib().Height()};
    QuickFit quick(bitmap.Surface(), style.font, area);
    int sure = 0;
    for (int i = 0; i < 400; ++i) {
      std::string text;
      for (auto count = random() % 30; count > 0; --count) text += pieces[random() % pieces.size()];
      if (!quick.SurelyFits(text)) continue;
      ++sure;
      bitmap.Surface().SelectFont(style.font);
      EXPECT_TRUE(StyledTextFits(bitmap.Surface(), text, area, style.font).fits) << text;
    }
    EXPECT_GT(sure, 40);
  }
}

}  // namespace
}  // namespace captoria
