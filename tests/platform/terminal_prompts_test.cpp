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

}  // namespace
}  // namespace captoria
