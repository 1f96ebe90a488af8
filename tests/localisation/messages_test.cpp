// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/messages.h"

#include <gtest/gtest.h>

#include "localisation/window_texts.h"

namespace captoria {
namespace {

TEST(Messages, AndWindowTextsAreTheDocumentsOrElseTheBuiltInOnes) {
  EXPECT_EQ(MessageText({}, messages::kFinished), "Creation Finished!");
  const auto language = LanguageDocument::Parse(
      "<any><Other_Module s8='no'/><Form1_Module s8='Fertig' s12=''/>"
      "<Form1_Design lblStream='Spur' lblHide='' lblReplaceBatch='no'/></any>");
  ASSERT_TRUE(language) << language.error().message;
  EXPECT_EQ(MessageText(*language, messages::kFinished), "Fertig");
  EXPECT_EQ(MessageText(*language, messages::kFailed), "") << "an empty text is a text";
  EXPECT_EQ(MessageText(*language, messages::kLoadAvi), "Load a valid avi file");
  EXPECT_EQ(TextOf(*language, window_texts::kStream), "Spur");
  EXPECT_EQ(TextOf(*language, window_texts::kHide), "");
  EXPECT_EQ(TextOf(*language, window_texts::kText), "Text");
  EXPECT_EQ(TextOf(*language, window_texts::kReplaceBatch), window_texts::kReplaceBatch.text) << "another window's";
}

}  // namespace
}  // namespace captoria
