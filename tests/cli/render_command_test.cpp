// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/run_program.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Json = nlohmann::json;

class RenderCommand : public testing::Test {
 protected:
  ProgramRun Render(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"render", "--data", folder_.Path(), "--out", Out()});
    return RunProgram("captoria-cli", arguments);
  }
  std::string Out() const { return folder_.File("out/bitmaps"); }

  TestFolder folder_;
  std::string file_ = folder_.Put("a.srt",
                                  "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n"
                                  "2\n00:00:03,000 --> 00:00:04,000\nTwo\n\n"
                                  "3\n00:00:05,000 --> 00:00:06,000\nThree \xF3\xB0\x80\x81\n");
};

TEST_F(RenderCommand, WritesABitmapACueAndTellsFontsAndMissingCharacters) {
  const auto run = Render({file_, "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(ListFiles(Out(), "*"), ElementsAre("bmp00001.bmp", "bmp00002.bmp", "bmp00003.bmp"));
  const Json drawn = Json::parse(run.out);
  EXPECT_EQ(drawn["bitmaps"].at(1)["file"], Out() + "/bmp00002.bmp");
  EXPECT_EQ(drawn["missing"], Json::array({"U+F0001"}));
  EXPECT_THAT(Render({file_}).out, HasSubstr("no installed font has U+F0001"));
}

TEST_F(RenderCommand, SaysWhenThereIsNoFontAtAll) {
  const std::string none = folder_.Put("fonts.conf", "<fontconfig></fontconfig>");
  setenv("FONTCONFIG_FILE", none.c_str(), 1);
  const auto run = Render({file_});
  unsetenv("FONTCONFIG_FILE");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("no font is installed"));
  EXPECT_THAT(ListFiles(Out(), "*"), ElementsAre());
}

TEST_F(RenderCommand, KeepsTheNumbersOfAPart) {
  EXPECT_EQ(Render({file_, "--first", "2", "--last", "2"}).status, 0);
  EXPECT_THAT(ListFiles(Out(), "*"), ElementsAre("bmp00002.bmp"));
}

TEST_F(RenderCommand, SettingsOfTheCommandLineCoverStoredOnes) {
  folder_.Put("Captoria.ini", "[General]\nFontSize0=50\n");
  const auto height = [&](const std::vector<std::string>& settings) {
    std::vector<std::string> arguments{file_, "--json"};
    for (const std::string& setting : settings) arguments.insert(arguments.end(), {"--set", setting});
    return Json::parse(Render(arguments).out)["bitmaps"].at(0)["height"].get<int>();
  };
  EXPECT_GT(height({}), height({"FontSize0=20"}));
  EXPECT_EQ(height({"FontSize0=20"}), height({"FontName0=Liberation Sans", "FontSize0=30", "FontSize0=20"}));
  EXPECT_EQ(folder_.Get("Captoria.ini"), "[General]\nFontSize0=50\n") << "nothing is stored";
}

TEST_F(RenderCommand, DrawsTheCuesAsTheCommandsPlaceThem) {
  file_ = folder_.Put("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nTwo\nuneven lines\n");
  const auto bitmap = [&](const std::string& commands) {
    EXPECT_EQ(Render({file_, "--commands", folder_.Put("a.cbx", commands)}).status, 0);
    return folder_.Get("out/bitmaps/bmp00001.bmp");
  };
  const std::string centred = bitmap("");
  EXPECT_NE(bitmap("select , \"two\", \"\"\nposalignment , r"), centred);
  EXPECT_EQ(bitmap("select , \"one\", \"\"\nposalignment , r"), centred);
}

TEST_F(RenderCommand, RefusesWhatItCannotDo) {
  EXPECT_EQ(Render({file_, "--commands", folder_.File("none.cbx")}).status, 2);
  for (const char* setting : {"NoSuchKey=1", "FontSize0=big", "FontSize8=1", "FontSize0"}) {
    const auto run = Render({file_, "--set", setting});
    EXPECT_EQ(run.status, 2) << setting;
    EXPECT_THAT(run.err, HasSubstr("captoria-cli: "));
  }
  EXPECT_EQ(Render({folder_.File("none.srt")}).status, 1);
  EXPECT_EQ(Render({folder_.Put("a.idx", "")}).status, 1);
  folder_.Put("out", "a file where the folder should be");
  EXPECT_EQ(Render({file_}).status, 1);
}

}  // namespace
}  // namespace captoria
