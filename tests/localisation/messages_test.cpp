// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/messages.h"

#include <gmock/gmock.h>

#include "localisation/window_texts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;

TEST(Messages, AreTheDocumentsOrElseTheBuiltInOnes) {
  EXPECT_EQ(MessageText({}, messages::kFinished), "Creation Finished!");
  const TestFolder folder;
  const auto language =
      LanguageDocument::Load(folder.Put("German.xml",
                                        "<?xml version='1.0' encoding='ISO-8859-1'?><any><Other_Module s8='no'/>"
                                        "<Form1_Module s8='F\xE4rtig' s12=''/>"
                                        "<Form1_Design lblStream='Spur' lblHide='' lblReplaceBatch='no'/></any>"));
  ASSERT_TRUE(language) << language.error().message;
  EXPECT_EQ(MessageText(*language, messages::kFinished), "F\xC3\xA4rtig");
  EXPECT_EQ(MessageText(*language, messages::kFailed), "") << "an empty text is a text";
  EXPECT_EQ(MessageText(*language, messages::kLoadAvi), "Load a valid avi file");
  EXPECT_EQ(TextOf(*language, window_texts::kStream), "Spur");
  EXPECT_EQ(TextOf(*language, window_texts::kHide), "");
  EXPECT_EQ(TextOf(*language, window_texts::kText), "Text");
  EXPECT_EQ(TextOf(*language, window_texts::kReplaceBatch), window_texts::kReplaceBatch.text) << "another window's";
}

TEST(Messages, AFileThatIsNoDocumentIsRefusedWithItsPlace) {
  const TestFolder folder;
  EXPECT_THAT(LanguageDocument::Load(folder.Put("a.xml", "<a><b></a>")).error().message,
              HasSubstr("a.xml: is no language file"));
  EXPECT_EQ(LanguageDocument::Load(folder.File("none.xml")).error().kind, ErrorKind::NotFound);
}

}  // namespace
}  // namespace captoria
