// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/tool_log.h"

#include <gmock/gmock.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

ToolLog Log(const std::string& text) {
  const TestFolder folder;
  return ReadToolLog(folder.Put("log", text));
}

TEST(ToolLog, FindingsComeBackWhateverTheyHold) {
  using enum FindingKind;
  const Findings findings{{DamagedVideo, "C:\\m\\film.avi", 0, "The file breaks off"},
                          {SubtitleChanged, "/m/a \"b\"\", line 3: c.txt", 12, "\"d\": 1 cue cut short"},
                          {LargeFilm, "", 0, "larger than 2 GB", Severity::Note},
                          {DamagedSubtitle, "\"", 1, ""},
                          {ToolMessage, "a\r\n\x1B[2J\x7F\n", 2, "b\nx: warning [large-film]: c\r"},
                          {ToolMessage, "C:\\xvid\\x0A\\\\x\\", 3, "C:\\x\\x0a \xC2\xA0\xFF "}};
  std::string log;
  for (const Finding& finding : findings) log += ToolLine("divxmux", finding) + "\r\n";
  EXPECT_THAT(Log(log).findings, ElementsAreArray(findings));
  EXPECT_THAT(Log(log).last_lines, IsEmpty());
  EXPECT_EQ(log.substr(0, log.find('\r')), "divxmux: warning [damaged-video] \"C:\\m\\film.avi\": The file breaks off");
  EXPECT_EQ(ToolLine("bmptoxsub", findings[1]),
            R"(bmptoxsub: warning [subtitle-changed] "/m/a ""b"""", line 3: c.txt", line 12: "d": 1 cue cut short)");
  EXPECT_EQ(ToolLine("divxmux", "a\x1B[2J\n: is missing"), "divxmux: a\\x1B[2J\\x0A: is missing");
}

TEST(ToolLog, OnlyWhatAToolWritesIsAFinding) {
  const std::vector<std::string> lines{"/m/Last Warning: Part 2.divx: 3 stream(s), 100 bytes",
                                       "divxmux: warning: a film",
                                       "large-film] a film",
                                       "divxmux: warning [no-kind]: a film",
                                       "divxmux: error [large-film]: a film",
                                       "divxmux: warning [large-film] a.avi: a film",
                                       "divxmux: warning [large-film] \"a.avi\", line x: a film",
                                       "divxmux: warning [large-film] \"a.avi: a film",
                                       " divxmux: warning [large-film]: a film",
                                       "/m/divxmux: warning [large-film]: a film"};
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  EXPECT_THAT(Log(text).findings, IsEmpty());
  EXPECT_THAT(Log(text).last_lines, ElementsAreArray(lines));
}

TEST(ToolLog, KeepsTheLastLinesOfALongLog) {
  EXPECT_THAT(ReadToolLog("/no such log").last_lines, IsEmpty());
  std::string text = "early\r\n\r\n10 %\r20 %\rdone\n";
  for (int i = 0; i < 9; ++i) text += "line " + std::to_string(i) + "\n";
  EXPECT_THAT(Log(text).last_lines, ElementsAre("done", "line 0", "line 1", "line 2", "line 3", "line 4", "line 5",
                                                "line 6", "line 7", "line 8"));
  const std::string finding = "a: warning [large-film]: b\n";
  const ToolLog cut = Log("x" + finding + std::string((64 << 10) - finding.size() - 8, '\n') + "the end\n");
  EXPECT_THAT(cut.last_lines, ElementsAre("the end"));
  EXPECT_THAT(cut.findings, IsEmpty()) << "the beginning of its line is not known";
}

}  // namespace
}  // namespace captoria
