// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/language_commands.h"

#include <gmock/gmock.h>

#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kBuiltIn = "Creation Finished!";

class LanguageCommands : public testing::Test {
 protected:
  // A language file with one message, "Creation Finished!".
  void Put(const std::string& name, const std::string& text) {
    folder_.Put(name, "<L><Form1_Module s8='" + text + "'/></L>");
  }

  std::string Finished() const { return workspace_.language.TextOf(messages::kFinished); }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
  Workspace workspace_{{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_};
};

TEST_F(LanguageCommands, ThereIsEnglishBeforeTheSettingsLanguage) {
  Put("English.Captoria.exe.xml", "old");
  Put("English.Captoria.exe.xml.New", "new");
  Put("German.Captoria.exe.xml", "fertig");
  LoadInitialLanguage(workspace_);
  EXPECT_EQ(Finished(), "new");
  workspace_.preferences.settings.Lang = "German";
  RestoreLanguage(workspace_);
  EXPECT_EQ(Finished(), "fertig");
  EXPECT_EQ(workspace_.language.LangFile, "German.Captoria.exe");
  ASSERT_TRUE(SaveAll(workspace_.preferences, workspace_.project));
  EXPECT_THAT(folder_.Get("Captoria.ini"), HasSubstr("Lang=German"));
}

TEST_F(LanguageCommands, ALanguageWhoseFileIsGoneIsEnglishWithoutAWord) {
  for (const char* gone : {"German", "../German", ""}) {
    workspace_.preferences.settings.Lang = gone;
    RestoreLanguage(workspace_);
    EXPECT_EQ(workspace_.language.LangFile, "English.Captoria.exe") << gone;
    EXPECT_EQ(Finished(), kBuiltIn);
  }
  EXPECT_THAT(view_.warnings, IsEmpty());
  ASSERT_TRUE(SaveAll(workspace_.preferences, workspace_.project));
  EXPECT_THAT(folder_.Get("Captoria.ini"), HasSubstr("Lang=English"));
}

TEST_F(LanguageCommands, AChoiceWithoutAFileChangesNothing) {
  Put("German.Captoria.exe.xml", "fertig");
  EXPECT_TRUE(LoadNewLang(workspace_, "German.Captoria.exe"));
  EXPECT_FALSE(LoadNewLang(workspace_, "French.Captoria.exe"));
  EXPECT_EQ(workspace_.language.LangFile, "German.Captoria.exe");
  EXPECT_EQ(Finished(), "fertig");
}

TEST_F(LanguageCommands, ABrokenFileIsToldOnceAndTheTextsAreTheBuiltInOnes) {
  folder_.Put("English.Captoria.exe.xml", "<L>\n<Form1_Module");
  LoadInitialLanguage(workspace_);
  RestoreLanguage(workspace_);
  EXPECT_EQ(Finished(), kBuiltIn);
  EXPECT_THAT(view_.warnings, ElementsAre(HasSubstr("English.Captoria.exe.xml: not a valid language file: line 2: ")));
}

TEST_F(LanguageCommands, TheCreditKeepsWhatTheFileDoesNotSay) {
  const auto credit = [this](const std::string& attributes) {
    workspace_.language.document = *LanguageDocument::Parse("<L><Private" + attributes + "/></L>");
    return LanguageCredit(workspace_.language.document, "before");
  };
  EXPECT_EQ(credit(" Creator='Ann' ProgramVersion='3.5.0'"), "Language by Ann (3.5.0)");
  EXPECT_EQ(credit(" Creator=''"), "Language by ");
  EXPECT_EQ(credit(" ProgramVersion='3.5.0'"), "before (3.5.0)");
  EXPECT_EQ(credit(""), "before");
}

}  // namespace
}  // namespace captoria
