// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/make_divx.h"

#include "app/load_subtitle.h"
#include "app/open_video.h"
#include "base/bytes.h"
#include "tests/app/conversion_test.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class MakeDivXTest : public ConversionTest {
 protected:
  // Opens a film with its subtitle file.
  void OpenFilm(const std::string& streams = avi_maker::VideoStream() + avi_maker::AudioStream()) {
    film_ = PutFilm("movie.avi", streams);
    folder_.Put("movie.srt", kTwoCues);
    ASSERT_TRUE(OpenAnAviFile(workspace_, film_, {}));
  }

  Result<std::string> Make() { return MakeFinalDivX(workspace_, backend_).film; }

  Result<std::string> MakeAlone(bool keep_temp = false) {
    return Unattended([&](Workspace& alone) { return MakeFinalDivX(alone, backend_, keep_temp).film; });
  }

  std::string film_;
};

constexpr const char* kUnknownStreams = "There are unknown streams at loaded avi file. You want to remove them?";

std::string UnknownStream() {
  return avi_maker::List(
      "strl", avi_maker::Piece("strh", avi_maker::StreamHeader("mids", 1, 1, 1)) + avi_maker::Piece("strf", "x"));
}

TEST_F(MakeDivXTest, RunsTheScriptTellsAndLeavesTheTemporaryFolderEmpty) {
  OpenFilm();
  ASSERT_TRUE(workspace_.preferences.Override("RunDivX", "-1"));
  const auto made = Make();
  ASSERT_TRUE(made) << made.error().message;
  EXPECT_EQ(*made, folder_.File("movie.divx"));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Creation Finished!"));
  EXPECT_THAT(documents_.opened, ElementsAre(*made));
  EXPECT_THAT(scripts_.scripts.front(),
              HasSubstr("cd \"" + folder_.File("data/tmp") + "\"\r\nbmptoxsub.exe linkerfile0.txt aXsub0.xsub\r\n"));
  EXPECT_THAT(scripts_.scripts.front(), EndsWith("-o \"" + *made + "\"\r\npause\r\n"));
  EXPECT_EQ(scripts_.starts.front().show, ShowStyle::Normal);
  EXPECT_THAT(Left(), IsEmpty());
  EXPECT_EQ(*Make(), folder_.File("movie_.divx"));
}

TEST_F(MakeDivXTest, UnattendedItWritesNoPauseTellsNothingAndOpensNothing) {
  OpenFilm();
  ASSERT_TRUE(workspace_.preferences.Override("RunDivX", "-1"));
  ASSERT_TRUE(workspace_.preferences.Override("WaitToEndDos", "0"));
  ASSERT_TRUE(workspace_.preferences.Override("deleteTemp", "0"));
  EXPECT_TRUE(MakeAlone());
  EXPECT_FALSE(scripts_.left_running);
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_THAT(documents_.opened, IsEmpty());
  EXPECT_THAT(scripts_.scripts.front(), Not(HasSubstr("pause")));
  EXPECT_THAT(Left(), IsEmpty());
  EXPECT_TRUE(MakeAlone(true));
  EXPECT_THAT(Left(), ElementsAre("DivXMux.exe", "bmp00001.bmp", "bmp00002.bmp", "bmptoxsub.exe", "divxmux.bat",
                                  "divxmux.output", "linkerfile0.txt"));
}

TEST_F(MakeDivXTest, ClosesUpAsTheSettingsSay) {
  OpenFilm();
  ASSERT_TRUE(workspace_.preferences.Override("deleteTemp", "0"));
  ASSERT_TRUE(workspace_.preferences.Override("deleteOther", "-1"));
  ASSERT_TRUE(Make());
  EXPECT_THAT(Left(), ElementsAre("bmp00001.bmp", "bmp00002.bmp"));
  ASSERT_TRUE(workspace_.preferences.Override("deleteBmp", "-1"));
  ASSERT_TRUE(Make());
  EXPECT_THAT(Left(), IsEmpty());
  prompts_.TakeMessages();
}

TEST_F(MakeDivXTest, WithoutWaitingNothingIsToldOrDeleted) {
  OpenFilm();
  ASSERT_TRUE(workspace_.preferences.Override("WaitToEndDos", "0"));
  ASSERT_TRUE(workspace_.preferences.Override("ShowDosCombo", "4"));
  ASSERT_TRUE(Make());
  EXPECT_TRUE(scripts_.left_running);
  EXPECT_FALSE(scripts_.starts.front().ends_with_us);
  EXPECT_EQ(scripts_.starts.front().show, ShowStyle::MinimizedNoFocus);
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_THAT(Left(), testing::Contains("divxmux.bat"));
}

TEST_F(MakeDivXTest, AToolThatFailsIsToldWithItsLastLinesAlsoWhereAnOldFilmStands) {
  OpenFilm();
  ASSERT_TRUE(workspace_.preferences.Override("ReplaceDivX", "-1"));
  folder_.Put("movie.divx", "old");
  scripts_.run = [&](const std::string&) {
    folder_.Put(Temporary("divxmux.log"), "divxmux: the disk is full\n");
    return 1;
  };
  EXPECT_THAT(Make().error().message, EndsWith("movie.divx: was not made: a tool failed\ndivxmux: the disk is full"));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Creation failed\ndivxmux: the disk is full"));
  EXPECT_EQ(folder_.Get("movie.divx"), "old");
  EXPECT_THAT(Left(), IsEmpty());
  scripts_.run = [](const std::string&) { return 0; };
  EXPECT_THAT(MakeAlone().error().message, EndsWith("the tools left no film behind"));
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
}

TEST_F(MakeDivXTest, WhatIsMissingIsToldAlsoUnattended) {
  EXPECT_FALSE(MakeAlone());
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Load a valid avi file"));
  film_ = PutFilm("movie.avi");
  ASSERT_TRUE(OpenAnAviFile(workspace_, film_, {}));
  EXPECT_FALSE(MakeAlone());
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Load a subtitle file"));
  EXPECT_FALSE(FolderExists(folder_.File("data/tmp"))) << "nothing was begun";
}

TEST_F(MakeDivXTest, UnknownStreamsAreLeftOutOnlyWhenTheUserAgrees) {
  film_ = PutFilm("movie.avi", avi_maker::VideoStream() + UnknownStream());
  ASSERT_TRUE(OpenAnAviFile(workspace_, film_, {}));
  prompts_.Expect(kUnknownStreams, false);
  EXPECT_FALSE(MakeAlone());
  EXPECT_FALSE(FolderExists(folder_.File("data/tmp")));
  prompts_.Expect(kUnknownStreams, true);
  ASSERT_TRUE(MakeAlone());
  EXPECT_THAT(scripts_.scripts.front(), HasSubstr("divxmux.exe -v () \"" + film_ + "\" -o "));
}

TEST_F(MakeDivXTest, AMissingToolIsAskedForUntilItIsThere) {
  OpenFilm();
  std::filesystem::remove(folder_.File("data/bmptoxsub.exe"));
  const std::string question = "File bmptoxsub.exe not found. Please, set the path for this file";
  prompts_.Expect(question, std::optional<std::string>{" "});
  prompts_.Expect(question, std::optional<std::string>{folder_.File("none")});
  prompts_.Expect(question, std::optional<std::string>{});
  EXPECT_EQ(Make().error().kind, ErrorKind::NotFound);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Please set a path", "Please set a valid path"));
  EXPECT_THAT(scripts_.scripts, IsEmpty());
  prompts_.Expect(question, std::optional<std::string>{" " + folder_.Put("mine", "tool") + " "});
  EXPECT_TRUE(Make());
  EXPECT_THAT(folder_.Get("data/Captoria.ini"), HasSubstr("bmpToxSubPath=" + folder_.File("mine") + "\r\n"));
  EXPECT_TRUE(Make()) << "asked once and for all";

  ASSERT_TRUE(workspace_.preferences.Override("bmpToxSubPath", ""));
  ASSERT_TRUE(workspace_.preferences.Override("UseBmpToXSub", "0"));
  EXPECT_TRUE(Make()) << "nobody needs it";
  prompts_.TakeMessages();
}

TEST_F(MakeDivXTest, StoppingLeavesNothing) {
  OpenFilm();
  for (const Work stopped : {Work::Bitmaps, Work::Film}) {
    view_.goes_on = [stopped](Work work) { return work != stopped; };
    EXPECT_EQ(MakeAlone().error().kind, ErrorKind::Cancelled);
    EXPECT_THAT(Left(), IsEmpty());
    EXPECT_FALSE(FileExists(folder_.File("movie.divx")));
  }
}

TEST_F(MakeDivXTest, AForcedHeightCountsForTheMuxerAloneAndMakesTheSystemPal) {
  struct Row {
    bool converter;
    int forced;
    VideoSystem video;
    int height;
    VideoSystem system;
  };
  for (const Row& row : {Row{true, 0, VideoSystem::Ntsc, 480, VideoSystem::Ntsc},
                         Row{true, 400, VideoSystem::Ntsc, 480, VideoSystem::Pal},
                         Row{false, 400, VideoSystem::Pal, 400, VideoSystem::Pal},
                         Row{false, 0, VideoSystem::Pal, 576, VideoSystem::Pal}}) {
    workspace_.preferences.settings.UseBmpToXSub = row.converter;
    workspace_.preferences.settings.ForceVideoHeight = row.forced;
    workspace_.project.video.VideoSystem = row.video;
    const ConversionPlan plan = MakePlan(workspace_, false);
    EXPECT_EQ(plan.frame_height, row.height) << row.forced;
    EXPECT_EQ(plan.system, row.system) << row.forced;
    EXPECT_EQ(plan.bitmap.width, row.converter ? 720 : 640);
  }
}

TEST_F(MakeDivXTest, NamesThatCannotBePassedOnAreRefusedBeforeAnythingIsDone) {
  film_ = PutFilm("a \"quoted\" name.avi");
  folder_.Put("a \"quoted\" name.srt", kTwoCues);
  ASSERT_TRUE(OpenAnAviFile(workspace_, film_, {}));
  EXPECT_THAT(MakeAlone().error().message, HasSubstr("rename it"));
  EXPECT_THAT(Left(), IsEmpty());
}

}  // namespace
}  // namespace captoria
