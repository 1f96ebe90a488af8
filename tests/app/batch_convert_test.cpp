// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/batch_convert.h"

#include "tests/app/conversion_test.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Arguments {
  const char* name;
  const char* text;
  bool unattended;
  const char* path;
};

class CommandLines : public testing::TestWithParam<Arguments> {};

TEST_P(CommandLines, AreReadAsOneText) {
  const CommandLine line = ParseCommandLine(GetParam().text);
  EXPECT_EQ(line.unattended, GetParam().unattended);
  EXPECT_EQ(line.path, GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CommandLines,
    testing::Values(Arguments{"SwitchInFront", "/AUTO C:\\my video.avi", true, "C:\\my video.avi"},
                    Arguments{"SwitchBehind", "C:\\a.avi /Auto", true, "C:\\a.avi"},
                    Arguments{"EverySwitch", "/auto C:\\a/AUTOb.avi", true, "C:\\ab.avi"},
                    Arguments{"ItsLettersInAPath", "/AUTO /a/Autos/my  film.avi", true, "/a/Autos/my  film.avi"},
                    Arguments{"APathAlone", "/a/Autos/film.avi", false, "/a/Autos/film.avi"},
                    Arguments{"OneWord", "/AUTOC:\\a.avi", true, "C:\\a.avi"},
                    Arguments{"Quoted", "/auto \"C:\\a b.avi\"", true, "C:\\a b.avi"},
                    Arguments{"NoSwitch", "C:\\a.avi", false, "C:\\a.avi"}, Arguments{"Empty", "", false, ""}),
    [](const auto& row) { return std::string{row.param.name}; });

using BatchConvertTest = ConversionTest;

TEST_F(BatchConvertTest, TheUnattendedRunConvertsOrSaysThatThereIsNothingTo) {
  const std::string film = PutFilm("movie.avi");
  EXPECT_FALSE(RunUnattended(session_, outside_, film));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Can not find any subtitles"));
  folder_.Put("movie.srt", kTwoCues);
  const auto made = RunUnattended(session_, outside_, film);
  ASSERT_TRUE(made) << made.error().message;
  EXPECT_EQ(folder_.Get("movie.divx"), "film");
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_TRUE(FileExists(folder_.File("data/Captoria.ini")));
}

TEST_F(BatchConvertTest, EachVideoIsReportedAndAStopEndsTheRun) {
  std::vector<std::string> videos{PutFilm("a.avi"), PutFilm("b.avi"), folder_.File("missing.avi"), PutFilm("d.avi")};
  for (const char* name : {"a.srt", "missing.srt", "d.srt"}) folder_.Put(name, kTwoCues);
  std::vector<ConvertedVideo> done;
  const ConvertOptions options{.subtitles{}, .done = [&](const ConvertedVideo& video) { done.push_back(video); }};
  ConvertReport report = ConvertVideos(session_, outside_, videos, options);
  EXPECT_EQ(report.text, "Can not find any subtitles for \"" + videos[1] + "\"\r\nConvert failed with file \"" +
                             videos[2] + "\"\r\n");
  ASSERT_EQ(done.size(), 4u);
  EXPECT_EQ(done[0].output, folder_.File("a.divx"));
  EXPECT_THAT(done[1].error, HasSubstr("no subtitle file"));
  EXPECT_THAT(done[2].error, HasSubstr("missing.avi: there is no such file"));
  EXPECT_FALSE(session_.tracks.Current().HasFile());
  EXPECT_FALSE(session_.BatchConverting);
  EXPECT_EQ(session_.video.AviPath, videos[3]);

  view_.goes_on = [](Work work) { return work != Work::Film; };
  report = ConvertVideos(session_, outside_, videos, {});
  EXPECT_TRUE(report.stopped);
  EXPECT_EQ(report.text, "");
  EXPECT_EQ(session_.video.AviPath, videos[0]) << "none was begun after it";
}

TEST_F(BatchConvertTest, GivenSubtitlesGoInPlaceOfThoseOfItsName) {
  const std::string film = PutFilm("a.avi");
  folder_.Put("a.srt", kTwoCues);
  ConvertOptions options{.subtitles = {folder_.Put("x.srt", kTwoCues), folder_.Put("y.idx", "")}};
  const ConvertReport report = ConvertVideos(session_, outside_, std::vector{film}, options);
  EXPECT_EQ(report.text, "");
  EXPECT_THAT(scripts_.scripts.front(),
              HasSubstr("aXsub0.xsub -s (Subtitle - en;02) \"" + folder_.File("y.idx") + "\" -o"));
  options.subtitles.push_back(folder_.File("none.srt"));
  EXPECT_THAT(ConvertVideos(session_, outside_, std::vector{film}, options).text, HasSubstr("Error opening file"));
}

}  // namespace
}  // namespace captoria
