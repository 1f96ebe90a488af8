// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/terminal_prompts.h"

#include <gtest/gtest.h>

#include <sstream>

namespace captoria {
namespace {

TEST(TerminalPrompts, NobodyToAnswerMeansRefusedWithoutReading) {
  std::istringstream in("y\ny\n");
  std::ostringstream messages;
  TerminalPrompts prompts(in, messages, false);
  EXPECT_FALSE(prompts.AskYesNo("Captoria", "Go on?"));
  EXPECT_EQ(prompts.AskFolder("Folder", "/start"), std::nullopt);
  EXPECT_EQ(in.tellg(), 0);
}

TEST(TerminalPrompts, AnswersAreLinesAndAnEmptyOneTakesTheProposal) {
  std::istringstream in("Yes\nn\n\n/other\n");
  std::ostringstream messages;
  TerminalPrompts prompts(in, messages, true);
  EXPECT_TRUE(prompts.AskYesNo("Captoria", "Go on?"));
  EXPECT_FALSE(prompts.AskYesNo("Captoria", "Really?"));
  EXPECT_EQ(prompts.AskFolder("Folder", "/start"), "/start");
  EXPECT_EQ(prompts.AskFolder("Folder", "/start"), "/other");
  EXPECT_EQ(prompts.AskFolder("Folder", "/start"), std::nullopt) << "the end of input cancels";
}

TEST(TerminalPrompts, FilesAreTypedALineEachUntilAnEmptyOne) {
  std::istringstream in("/a.avi\n/b.avi\n\n/c.avi\n");
  std::ostringstream messages;
  TerminalPrompts prompts(in, messages, true);
  EXPECT_EQ(prompts.AskFilesToOpen("Videos", {}, "/start"), (std::vector<std::string>{"/a.avi", "/b.avi"}));
  EXPECT_EQ(prompts.AskFilesToOpen("Videos", {}, "/start"), std::vector<std::string>{"/c.avi"}) << "as does the end";
}

TEST(TerminalPrompts, ColoursAreTypedRedFirst) {
  std::istringstream in("FF8000\nFF80001\nred\n\n");
  std::ostringstream messages;
  TerminalPrompts prompts(in, messages, true);
  EXPECT_EQ(prompts.AskColor("Color", 0), 0x0080FFu);
  EXPECT_EQ(prompts.AskColor("Color", 0), std::nullopt);
  EXPECT_EQ(prompts.AskColor("Color", 0), std::nullopt);
  EXPECT_EQ(prompts.AskColor("Color", 16711680), 16711680u);
}

}  // namespace
}  // namespace captoria
