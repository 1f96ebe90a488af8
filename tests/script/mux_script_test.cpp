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
using Step = MuxScriptStep;
using Words = std::vector<std::string>;

TEST(MuxScript, ALineComesApartIntoWords) {
  struct Row {
    const char* name;
    std::string text;
    Words words;
  };
  for (const auto& [name, text, words] :
       {Row{"StartOfAFolderIsADrive", "/h\r\n", {"/h"}}, Row{"LoneSlashIsADrive", "/\r\n", {"/"}},
        Row{"SecondCharacterOfManyBytes", "/\xF0\x9F\x8E\xAC\n", {"/\xF0\x9F\x8E\xAC"}},
        Row{"NameBeginningLikeADrive", "c:\n", {"c:"}}, Row{"CommandsInAnyCase", "CD \"/m/tmp\"", {"/m/tmp"}},
        Row{"RunsOfBlanksSeparateOnce", " t \t a  b ", {"t", "a", "b"}},
        Row{"NothingInsideQuotesIsSpecial", R"(t "%PATH% ^ > $(x) `y` \")", {"t", R"(%PATH% ^ > $(x) `y` \)"}},
        Row{"NothingOutsideQuotesIsSpecialEither", "t a&b | > $HOME", {"t", "a&b", "|", ">", "$HOME"}},
        Row{"QuotesInsideAWord", R"(t a"b c"d)", {"t", "ab cd"}},
        Row{"EmptyQuotesAreAWord", R"(t "" a)", {"t", "", "a"}},
        Row{"BytesOfNoEncodingStay", "t \"\xFF\xFE\"", {"t", "\xFF\xFE"}}}) {
    const auto steps = ParseMuxScript(text);
    ASSERT_TRUE(steps && steps->size() == 1) << name;
    EXPECT_EQ(steps->front().words, words) << name;
  }
}

TEST(MuxScript, AFaultIsToldWithItsLine) {
  struct Row {
    const char* name;
    std::string text;
    const char* message;
  };
  for (const auto& [name, text, message] :
       {Row{"OpenQuotation", "C:\r\nt \"a\r\nt b\"\r\n", "line 2: a quotation mark"},
        Row{"ZeroByte", std::string("C:\nt a\0b\n", 9), "line 2: contains a zero byte"},
        Row{"LoneCarriageReturn", "t a\rcd \"b\"\n", "line 1: contains a CR"},
        Row{"ToolByPath", "C:\n../t a\n", "line 2: \"../t\" is not the name"},
        Row{"ToolByWindowsPath", "\"C:\\a\\t.exe\" a\n", "line 1: "},
        Row{"StartOfAFolderBelowTheFirstLine", "C:\n/h\n", "line 2: "},
        Row{"ToolWithoutName", "C:\n\"\" a\n", "line 2: "}, Row{"FolderAboveAsTool", "..", "line 1: "},
        Row{"CdWithoutFolder", "cd", "line 1: cd needs"}, Row{"CdToAnEmptyFolder", "cd \"\"", "line 1: cd needs"},
        Row{"CdWithTwoFolders", "cd /d C:\\a", "line 1: cd needs"},
        Row{"PauseWithWords", "pause > nul", "line 1: pause takes"}}) {
    const auto steps = ParseMuxScript(text);
    ASSERT_FALSE(steps) << name;
    EXPECT_THAT(steps.error().message, HasSubstr(message)) << name;
  }
}

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
  folder.Put("a.bat", "cd\n");
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
  ASSERT_THAT(*steps,
              ElementsAre(Step{Kind::ChangeDrive, 1, {"C:"}}, Step{Kind::ChangeFolder, 2, {"C:\\Tools\\my tmp"}},
                          Step{Kind::RunTool, 3, {"bmptoxsub.exe", "linkerfile0.txt", "aXsub0.xsub", "PALMODE1"}},
                          Step{Kind::RunTool, 4, {"bmptoxsub.exe", "l1.txt", "aXsub1.xsub"}}, testing::_,
                          Step{Kind::Pause, 6, {}}));
  const Words& command = (*steps)[4].words;
  const auto mux = ParseDivxMuxArguments(std::span{command}.subspan(1));
  ASSERT_TRUE(mux) << mux.error().message;
  EXPECT_EQ(*mux, script.mux);
}

TEST(MuxScript, WhatCannotBeQuotedIsKnown) {
  EXPECT_TRUE(CanBeQuoted("C:\\it's (1) & 100% ^.avi\xFF\\"));
  for (const std::string path : {"a\"b", "a\nb", "a\r"}) EXPECT_FALSE(CanBeQuoted(path)) << path;
  EXPECT_FALSE(CanBeQuoted(std::string(1, '\0')));
}

}  // namespace
}  // namespace captoria
