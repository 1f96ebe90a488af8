// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include "script/mux_script.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Kind = MuxScriptStep::Kind;
using Words = std::vector<std::string>;

TEST(MuxScript, IsReadAsItsSteps) {
  const auto steps = ParseMuxScript(
      "C:\r\n"
      "cd \"C:\\My Tools\\tmp\"\r\n"
      "\r\n"
      "bmptoxsub.exe linkerfile0.txt aXsub0.xsub PALMODE1\n"
      "divxmux.exe -v () \"D:\\m & n\\movie.avi\" -s (Subtitle - en;02) aXsub0.xsub -o \"D:\\m & n\\movie.divx\"\r\n"
      "pause");
  ASSERT_TRUE(steps) << steps.error().message;
  EXPECT_THAT(
      *steps,
      ElementsAre(MuxScriptStep{Kind::ChangeDrive, 1, {"C:"}},
                  MuxScriptStep{Kind::ChangeFolder, 2, {"C:\\My Tools\\tmp"}},
                  MuxScriptStep{Kind::RunTool, 4, {"bmptoxsub.exe", "linkerfile0.txt", "aXsub0.xsub", "PALMODE1"}},
                  MuxScriptStep{Kind::RunTool,
                                5,
                                {"divxmux.exe", "-v", "()", "D:\\m & n\\movie.avi", "-s", "(Subtitle", "-", "en;02)",
                                 "aXsub0.xsub", "-o", "D:\\m & n\\movie.divx"}},
                  MuxScriptStep{Kind::Pause, 6, {}}));
}

struct Line {
  const char* name;
  std::string text;
  Words words;
};

class MuxScriptLine : public testing::TestWithParam<Line> {};

TEST_P(MuxScriptLine, ComesApartIntoWords) {
  const auto steps = ParseMuxScript(GetParam().text);
  ASSERT_TRUE(steps) << steps.error().message;
  ASSERT_EQ(steps->size(), 1u);
  EXPECT_EQ(steps->front().words, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, MuxScriptLine,
    testing::Values(
        Line{"StartOfAFolderIsADrive", "/h\r\n", {"/h"}}, Line{"LoneSlashIsADrive", "/\r\n", {"/"}},
        Line{"SecondCharacterOfManyBytes", "/\xF0\x9F\x8E\xAC\n", {"/\xF0\x9F\x8E\xAC"}},
        Line{"NameBeginningLikeADrive", "c:\n", {"c:"}}, Line{"CommandsInAnyCase", "CD \"/m/tmp\"", {"/m/tmp"}},
        Line{"RunsOfBlanksSeparateOnce", " t \t a  b ", {"t", "a", "b"}},
        Line{"NothingInsideQuotesIsSpecial", R"(t "%PATH% ^ > $(x) `y` \")", {"t", R"(%PATH% ^ > $(x) `y` \)"}},
        Line{"NothingOutsideQuotesIsSpecialEither", "t a&b | > $HOME", {"t", "a&b", "|", ">", "$HOME"}},
        Line{"QuotesInsideAWord", R"(t a"b c"d)", {"t", "ab cd"}},
        Line{"EmptyQuotesAreAWord", R"(t "" a)", {"t", "", "a"}},
        Line{"BytesOfNoEncodingStay", "t \"\xFF\xFE\"", {"t", "\xFF\xFE"}}),
    [](const auto& row) { return std::string{row.param.name}; });

struct Refusal {
  const char* name;
  std::string text;
  const char* message;
};

class MuxScriptRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(MuxScriptRefusal, NamesTheLine) {
  const auto steps = ParseMuxScript(GetParam().text);
  ASSERT_FALSE(steps);
  EXPECT_THAT(steps.error().message, HasSubstr(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, MuxScriptRefusal,
    testing::Values(Refusal{"OpenQuotation", "C:\r\nt \"a\r\nt b\"\r\n", "line 2: a quotation mark"},
                    Refusal{"ZeroByte", std::string("C:\nt a\0b\n", 9), "line 2: contains a zero byte"},
                    Refusal{"LoneCarriageReturn", "t a\rcd \"b\"\n", "line 1: contains a CR"},
                    Refusal{"ToolByPath", "C:\n../t a\n", "line 2: \"../t\" is not the name"},
                    Refusal{"ToolByWindowsPath", "\"C:\\a\\t.exe\" a\n", "line 1: "},
                    Refusal{"StartOfAFolderBelowTheFirstLine", "C:\n/h\n", "line 2: "},
                    Refusal{"ToolWithoutName", "C:\n\"\" a\n", "line 2: "},
                    Refusal{"FolderAboveAsTool", "..", "line 1: "},
                    Refusal{"CdWithoutFolder", "cd", "line 1: cd needs"},
                    Refusal{"CdToAnEmptyFolder", "cd \"\"", "line 1: cd needs"},
                    Refusal{"CdWithTwoFolders", "cd /d C:\\a", "line 1: cd needs"},
                    Refusal{"PauseWithWords", "pause > nul", "line 1: pause takes"}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(MuxScript, LengthIsBounded) {
  std::string text;
  for (int line = 0; line < 10'000; ++line) text += '\n';
  EXPECT_TRUE(ParseMuxScript(text));
  EXPECT_EQ(ParseMuxScript(text + "\n").error().kind, ErrorKind::TooLarge);

  const TestFolder folder;
  const std::string path = folder.Put("a.bat", "t " + std::string((1 << 20) - 2, 'a'));
  EXPECT_TRUE(ReadMuxScript(path));
  folder.Put("a.bat", "t " + std::string((1 << 20) - 1, 'a'));
  EXPECT_EQ(ReadMuxScript(path).error().kind, ErrorKind::TooLarge);
}

TEST(MuxScript, ErrorsOfAFileBeginWithItsName) {
  const TestFolder folder;
  const std::string path = folder.Put("a.bat", "cd\n");
  EXPECT_THAT(ReadMuxScript(path).error().message, StartsWith(path + ": line 1: "));
}

TEST(MuxScript, IsReadBackAsItWasWritten) {
  using Stream = DivxMuxStream::Kind;
  const std::string film = "D:\\m & n\\movie.avi";
  const MuxScriptText script{.program_folder = "C:\\Tools",
                             .temp_folder = "C:\\Tools\\my tmp",
                             .converters = {{"linkerfile0.txt", "aXsub0.xsub", true}, {"l1.txt", "aXsub1.xsub"}},
                             .mux{.hardware_profile = true,
                                  .streams = {{Stream::Video, 1, "", film},
                                              {Stream::Subtitle, 1, "Subtitle (old) -s", film},
                                              {Stream::Audio, 2, "Audio", film},
                                              {Stream::NewSubtitle, 1, "Subtitle - en;02", "aXsub0.xsub"},
                                              {Stream::NewSubtitle, 1, "", "a-b.idx"}},
                                  .output = "D:\\m & n\\movie.divx"},
                             .pause = true};
  const std::string text = ComposeMuxScript(script);
  EXPECT_EQ(text,
            "C:\r\ncd \"C:\\Tools\\my tmp\"\r\n"
            "bmptoxsub.exe linkerfile0.txt aXsub0.xsub PALMODE1\r\nbmptoxsub.exe l1.txt aXsub1.xsub\r\n"
            "divxmux.exe -v () \"D:\\m & n\\movie.avi\" -s #1 (Subtitle (old) -s) \"D:\\m & n\\movie.avi\" "
            "-a #2 (Audio) \"D:\\m & n\\movie.avi\" -s (Subtitle - en;02) aXsub0.xsub -s () \"a-b.idx\" "
            "--profile hardware -o \"D:\\m & n\\movie.divx\"\r\npause\r\n");
  const auto steps = ParseMuxScript(text);
  ASSERT_TRUE(steps) << steps.error().message;
  const Words& command = steps->at(4).words;
  const auto mux = ParseDivxMuxArguments(std::span{command}.subspan(1));
  ASSERT_TRUE(mux) << mux.error().message;
  EXPECT_EQ(*mux, script.mux);
}

TEST(MuxScript, WhatCanBeQuotedIsReadBackAsOneWord) {
  for (const std::string path : {"/m/a b.avi", "C:\\a\\", "/m/it's (1) & 100% ^.avi", "\xFF", "  ", "/a\\"}) {
    ASSERT_TRUE(CanBeQuoted(path)) << path;
    const auto steps = ParseMuxScript("t \"" + path + "\"\r\n");
    ASSERT_TRUE(steps) << path;
    EXPECT_THAT(steps->front().words, ElementsAre("t", path));
  }
  for (const std::string& path :
       {std::string{"a\"b"}, std::string{"a\nb"}, std::string{"a\r"}, std::string("a\0b", 3)}) {
    EXPECT_FALSE(CanBeQuoted(path));
  }
}

}  // namespace
}  // namespace captoria
