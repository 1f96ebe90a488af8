// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/bitmap_job.h"

#include <gmock/gmock.h>

#include "media/bmp/bmp_file.h"
#include "platform/files.h"
#include "script/list_parser.h"
#include "settings/settings_values.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;

SubtitleCue Cue(const std::string& text, const std::string& tag = {}) {
  return {.Number = "1", .Show = "00:00:01,000", .Hide = "00:00:02,500", .Text = text, .Tag = tag};
}

SubtitleTrack Track(const std::string& path, std::vector<SubtitleCue> cues) {
  SubtitleTrack track;
  track.path = path;
  track.cues = std::move(cues);
  track.style = DefaultTrackStyle();
  return track;
}

TEST(BitmapJob, ListsEachBitmapWithItsOwnSizeAndTheCuesPlace) {
  const TestFolder folder;
  const std::vector<SubtitleTrack> tracks{Track("a.srt", {Cue("One"), Cue("One\r\nTwo", "|100r")}),
                                          Track("b.idx", {Cue("")}), Track("", {}), Track("d.srt", {})};
  const BitmapJob job{.tracks = tracks,
                      .bitmap = {.width = 720, .back_color = {0, 0, 255}},
                      .system = VideoSystem::Pal,
                      .folder = folder.Path(),
                      .threads = 2};
  NoProgress progress;
  const auto fonts = FontCollection::Open();
  ASSERT_TRUE(fonts) << fonts.error().message;
  const auto made = CreateBitmaps(*fonts, job, progress);
  ASSERT_TRUE(made) << made.error().message;
  EXPECT_THAT(ListFiles(folder.Path(), "*"),
              ElementsAre("bmp00001.bmp", "bmp00002.bmp", "linkerfile0.txt", "linkerfile3.txt"));

  const auto list = ParseConverterList(folder.Get("linkerfile0.txt"), "list");
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->cues.size(), 2u);
  for (const ListedCue& cue : list->cues) {
    const auto bitmap = ReadBmp(folder.File(cue.file));
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(cue.width, bitmap->width);
    EXPECT_EQ(cue.height, bitmap->height);
    EXPECT_EQ(cue.x, (720 - bitmap->width) / 2);
  }
  // A line takes the same height in both: the second is a line and 60 pixels higher.
  const int line = list->cues[1].height - list->cues[0].height;
  EXPECT_EQ(list->cues[0].y, 576 - (line + 15) - 40);
  EXPECT_EQ(list->cues[1].y, 576 - (2 * line + 15) - 100);
}

TEST(BitmapJob, CountsTheCuesOfAllTracksAndStopsWhenAsked) {
  const TestFolder folder;
  const std::vector<SubtitleCue> cues(40, Cue("Text"));
  const std::vector<SubtitleTrack> tracks{Track("a.srt", cues), Track("b.srt", cues)};
  const BitmapJob job{.tracks = tracks, .bitmap{}, .system = VideoSystem::Pal, .folder = folder.Path()};
  struct Last final : JobProgress {
    bool Report(std::size_t done, std::size_t total) override {
      last = {done, total};
      return done < stop_at;
    }
    std::pair<std::size_t, std::size_t> last;
    std::size_t stop_at = 1000;
  } progress;
  const auto fonts = FontCollection::Open();
  ASSERT_TRUE(fonts);
  ASSERT_TRUE(CreateBitmaps(*fonts, job, progress));
  EXPECT_EQ(progress.last, (std::pair<std::size_t, std::size_t>{80, 80}));
  progress.stop_at = 50;
  EXPECT_EQ(CreateBitmaps(*fonts, job, progress).error().kind, ErrorKind::Cancelled);
}

}  // namespace
}  // namespace captoria
