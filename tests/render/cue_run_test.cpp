// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/cue_run.h"

#include <gtest/gtest.h>

#include <latch>

#include "settings/settings_values.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

std::vector<SubtitleCue> ManyCues() {
  std::vector<SubtitleCue> cues(100);
  for (std::size_t i = 0; i < cues.size(); ++i) {
    cues[i].Text = "Cue <i>number</i> " + std::to_string(i) + (i % 3 == 0 ? "\r\nsecond שלום" : "");
    if (i % 7 == 0) cues[i].Tag = "12|30r";
  }
  return cues;
}

CueRun BatchInto(const TestFolder& folder, const std::vector<SubtitleCue>& cues) {
  return {cues, DefaultTrackStyle(), {720, {0, 0, 255}}, [&folder](std::size_t i) {
            return folder.File(BitmapFileName(0, i + 1));
          }};
}

TEST(CueRun, GivesTheSameFilesOnAnyNumberOfThreads) {
  const auto fonts = FontCollection::Open().value();
  const auto cues = ManyCues();
  const TestFolder one, many;
  NoProgress progress;
  const auto alone = RenderCues(fonts, BatchInto(one, cues), 1, progress);
  const auto shared = RenderCues(fonts, BatchInto(many, cues), 5, progress);
  ASSERT_TRUE(alone && shared);
  EXPECT_EQ(alone->fonts.fonts, shared->fonts.fonts);
  EXPECT_EQ(alone->sizes, shared->sizes);
  EXPECT_LT(alone->sizes[0].height, alone->sizes[3].height) << "the first cue was fitted";
  for (std::size_t i = 0; i < cues.size(); ++i) {
    const std::string name = BitmapFileName(0, i + 1);
    EXPECT_FALSE(one.Get(name).empty());
    EXPECT_TRUE(one.Get(name) == many.Get(name)) << name;
  }
}

TEST(CueRun, ReportsTheFontsAndMissingCharactersOfEveryThread) {
  // No cue is saved before a second thread is about to save one as well, so both have something to report.
  std::vector<SubtitleCue> cues(32);
  cues.front().Text = "日本 \xF3\xB0\x80\x81";  // the last character is of a private plane
  cues.back().Text = "שלום \xF3\xB0\x80\x82";
  const TestFolder folder;
  CueRun batch = BatchInto(folder, cues);
  const auto fonts = FontCollection::Open().value();
  NoProgress progress;
  const auto alone = RenderCues(fonts, batch, 1, progress);
  std::latch both(2);
  batch.path_of = [&](std::size_t i) {
    if (i % 16 == 0) both.arrive_and_wait();
    return folder.File(BitmapFileName(0, i + 1));
  };
  const auto rendered = RenderCues(fonts, batch, 2, progress);
  ASSERT_TRUE(alone && rendered);
  EXPECT_EQ(rendered->fonts.fonts, alone->fonts.fonts);
  EXPECT_EQ(rendered->fonts.missing, (std::set<char32_t>{0xF0001, 0xF0002}));
}

class StopAfter final : public JobProgress {
 public:
  explicit StopAfter(std::size_t steps) : steps_(steps) {}
  bool Report(std::size_t done, std::size_t) override { return done < steps_; }

 private:
  std::size_t steps_;
};

TEST(CueRun, StopsWhenToldAndAtTheFirstFailure) {
  const auto fonts = FontCollection::Open().value();
  const auto cues = ManyCues();
  const TestFolder folder;
  StopAfter stop(20);
  const auto stopped = RenderCues(fonts, BatchInto(folder, cues), 1, stop);
  ASSERT_FALSE(stopped);
  EXPECT_EQ(stopped.error().kind, ErrorKind::Cancelled);
  EXPECT_LT(ListFiles(folder.Path(), "*.bmp").size(), cues.size());

  CueRun batch = BatchInto(folder, cues);
  batch.path_of = [&](std::size_t) { return folder.File("none/a.bmp"); };
  NoProgress progress;
  EXPECT_EQ(RenderCues(fonts, batch, 3, progress).error().kind, ErrorKind::Unwritable);
}

TEST(CueRun, NamesBitmapsByTrackAndCue) {
  EXPECT_EQ(BitmapFileName(0, 1), "bmp00001.bmp");
  EXPECT_EQ(BitmapFileName(2, 12), "bmp20012.bmp");
  EXPECT_EQ(BitmapFileName(7, 10000), "bmp710000.bmp");
}

}  // namespace
}  // namespace captoria
