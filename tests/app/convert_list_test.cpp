// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/convert_list.h"

#include "tests/app/conversion_test.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using ConvertListTest = ConversionTest;

TEST_F(ConvertListTest, EachVideoIsReportedAndAStopEndsTheRun) {
  std::vector<std::string> videos{PutFilm("a.avi"), PutFilm("b.avi"), folder_.File("missing.avi"), PutFilm("d.avi")};
  for (const char* name : {"a.srt", "missing.srt", "d.srt"}) folder_.Put(name, kTwoCues);
  std::vector<ConvertedFilm> done;
  const ConvertOptions options{.subtitles{}, .done = [&](const ConvertedFilm& film) { done.push_back(film); }};
  Workspace alone(folders_, prompts_, view_, Attendance::Nobody);
  ConvertReport report = ConvertVideos(alone, backend_, videos, options);
  EXPECT_EQ(report.text, "Can not find any subtitles for \"" + videos[1] + "\"\r\nConvert failed with file \"" +
                             videos[2] + "\"\r\n");
  ASSERT_EQ(done.size(), 4u);
  EXPECT_EQ(done[0].result, folder_.File("a.divx"));
  EXPECT_THAT(done[1].error->message, HasSubstr("no subtitle file"));
  EXPECT_THAT(done[2].error->message, HasSubstr("missing.avi: there is no such file"));
  EXPECT_FALSE(alone.project.tracks.Current().HasFile());
  EXPECT_EQ(alone.project.video.AviPath, videos[3]);

  view_.goes_on = [](Work work) { return work != Work::Film; };
  done.clear();
  report = ConvertVideos(alone, backend_, videos, options);
  EXPECT_TRUE(report.stopped);
  EXPECT_EQ(report.text, "");
  EXPECT_EQ(alone.project.video.AviPath, videos[0]) << "none was begun after it";
  EXPECT_EQ(done.size(), 4u);
  EXPECT_EQ(done[3].status, ConversionStatus::Skipped);
}

TEST_F(ConvertListTest, GivenSubtitlesGoInPlaceOfThoseOfItsName) {
  const std::string film = PutFilm("a.avi");
  folder_.Put("a.srt", kTwoCues);
  ConvertOptions options{.subtitles = {folder_.Put("x.srt", kTwoCues), folder_.Put("y.idx", "")}};
  const ConvertReport report = ConvertVideos(workspace_, backend_, std::vector{film}, options);
  EXPECT_EQ(ReportOrAllWell(report.text), "All seems to be ok");
  EXPECT_THAT(scripts_.scripts.front(),
              HasSubstr("aXsub0.xsub -s (Subtitle - en;02) \"" + folder_.File("y.idx") + "\" -o"));
  options.subtitles.push_back(folder_.File("none.srt"));
  EXPECT_THAT(ConvertVideos(workspace_, backend_, std::vector{film}, options).text, HasSubstr("Error opening file"));
}

}  // namespace
}  // namespace captoria
