// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/track_set.h"

#include <gtest/gtest.h>

namespace captoria {
namespace {

// A style that tells for which index it was asked.
void StyleOfIndex(int index, SubtitleTrack& track) { track.style.VertPos = 100 + index; }

void OpenTracks(TrackSet& tracks, int count) {
  for (int i = 0; i < count; ++i) {
    tracks.Current().path = "/f.srt";
    if (i + 1 < count) tracks.SelectLastTab(StyleOfIndex);
  }
}

TEST(TrackSet, AnEmptyLastTrackIsReselectedInsteadOfMakingAnother) {
  TrackSet tracks;
  tracks.SelectLastTab(StyleOfIndex);
  EXPECT_EQ(tracks.Count(), 1);

  OpenTracks(tracks, 2);
  tracks.Current().path.clear();
  tracks.Select(0);
  tracks.SelectLastTab(StyleOfIndex);
  EXPECT_EQ(tracks.Count(), 2);
  EXPECT_EQ(tracks.CurrentIndex(), 1);
}

TEST(TrackSet, UnloadingKeepsTheFirstStyleAndEveryRightToLeftFlag) {
  TrackSet tracks;
  OpenTracks(tracks, 3);
  tracks.Current().style.RightToLeft = true;
  tracks.Open()[0].style.VertPos = 7;
  tracks.Open()[0].list_font.name = "Sans";
  tracks.Open()[0].cues.resize(5);
  tracks.UnloadAllSrts();
  EXPECT_EQ(tracks.Count(), 1);
  EXPECT_FALSE(tracks.Current().HasFile());
  EXPECT_TRUE(tracks.Current().cues.empty());
  EXPECT_EQ(tracks.Current().style.VertPos, 7);
  EXPECT_EQ(tracks.Current().list_font.name, "Sans");

  OpenTracks(tracks, 3);
  EXPECT_TRUE(tracks.Current().style.RightToLeft) << "remembered for index 2";
  EXPECT_TRUE(tracks.Current().cues.empty());
}

}  // namespace
}  // namespace captoria
