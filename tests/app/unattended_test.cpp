// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/unattended.h"

#include "tests/app/conversion_test.h"

namespace captoria {
namespace {

using testing::ElementsAre;
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

using UnattendedRun = ConversionTest;

TEST_F(UnattendedRun, TheUnattendedRunConvertsOrSaysThatThereIsNothingTo) {
  const std::string film = PutFilm("movie.avi");
  Workspace alone(folders_, prompts_, view_, Attendance::Nobody);
  EXPECT_FALSE(RunUnattended(alone, backend_, film).film);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Can not find any subtitles"));
  folder_.Put("movie.srt", kTwoCues);
  const auto made = RunUnattended(alone, backend_, film).film;
  ASSERT_TRUE(made) << made.error().message;
  EXPECT_EQ(folder_.Get("movie.divx"), "film");
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_TRUE(FileExists(folder_.File("data/Captoria.ini")));
}

}  // namespace
}  // namespace captoria
