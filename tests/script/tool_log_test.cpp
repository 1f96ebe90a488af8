// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/tool_log.h"

#include <gmock/gmock.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ScriptLog, KeepsTheLastLinesAndAllWarnings) {
  const TestFolder folder;
  EXPECT_THAT(ReadScriptLog(folder.File("none")).last_lines, IsEmpty());
  std::string text = "tool: Warning: early\r\n\r\n10 %\r20 %\rdone\n";
  for (int i = 0; i < 9; ++i) text += "line " + std::to_string(i) + "\n";
  const ScriptLog log = ReadScriptLog(folder.Put("log", text));
  EXPECT_THAT(log.warnings, ElementsAre("early"));
  EXPECT_THAT(log.last_lines, ElementsAre("done", "line 0", "line 1", "line 2", "line 3", "line 4", "line 5", "line 6",
                                          "line 7", "line 8"));
  EXPECT_THAT(ReadScriptLog(folder.Put("log", std::string(1 << 20, 'x') + "\nthe end")).last_lines.back(), "the end");
}

}  // namespace
}  // namespace captoria
