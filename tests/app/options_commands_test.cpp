// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/options_commands.h"

#include <gmock/gmock.h>

#include "settings/settings_values.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class OptionsCommands : public testing::Test {
 protected:
  Session Start() { return {{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_}; }

  std::string File() const { return folder_.Get("Captoria.ini"); }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
};

TEST_F(OptionsCommands, TheirKeysAreWrittenInTheirOrderAndNoOthers) {
  Session session = Start();
  EXPECT_TRUE(ApplyOptions(session, session.settings, {}).saved);
  std::vector<std::string> keys;
  const auto document = IniDocument::Parse(File());
  for (const IniEntry& entry : document->Entries(kSettingsSection)) keys.push_back(entry.key);
  EXPECT_THAT(keys, ElementsAre("ReplaceDivX", "UseBmpToXSub", "BatchToRun", "deleteTemp", "deleteBmp", "deleteOther",
                                "UnLoadSrt", "LoadSrtAuto", "LoadSrtAutoFolder", "LoadSrtAutoFolderText", "LoadAviAuto",
                                "LoadAviAutoFolder", "LoadAviAutoFolderText", "BackColor", "ShowDos", "ShowDosPause",
                                "WaitToEndDos", "ShowDosCombo", "RunDivX", "AutoShowAviInfo", "FrameForPreview",
                                "ForceVideoHeight", "UsePalMode1", "LoadSubManyTimes"));
}

TEST_F(OptionsCommands, OnlyOptionsAreTaken) {
  Session session = Start();
  Settings edited = session.settings;
  edited.RunDivX = true;
  edited.Lang = "Greek";
  edited.MainWidth = 1;
  const OptionsEffect effect = ApplyOptions(session, edited, {});
  EXPECT_TRUE(session.settings.RunDivX);
  EXPECT_EQ(session.settings.Lang, "English");
  EXPECT_EQ(session.settings.MainWidth, 9000);
  EXPECT_FALSE(effect.frame_changed || effect.back_color_or_width_changed || effect.list_fonts_changed);
}

TEST_F(OptionsCommands, TellsWhatOnScreenIsAnother) {
  Session session = Start();
  Settings edited = session.settings;
  edited.FrameForPreview = 51;
  EXPECT_TRUE(ApplyOptions(session, edited, {}).frame_changed);
  edited.BackColor = 0;
  EXPECT_TRUE(ApplyOptions(session, edited, {}).back_color_or_width_changed);
  edited.UseBmpToXSub = false;
  EXPECT_TRUE(ApplyOptions(session, edited, {}).back_color_or_width_changed);
  ListFonts fonts;
  fonts[1] = Font{.name = "Nobody's"};
  EXPECT_FALSE(ApplyOptions(session, edited, fonts).list_fonts_changed) << "there is one track";
  fonts[0] = Font{.name = "DejaVu Sans", .size = 11};
  EXPECT_TRUE(ApplyOptions(session, edited, fonts).list_fonts_changed);
  EXPECT_EQ(ListFontOf(session, 0).name, "DejaVu Sans");
}

TEST_F(OptionsCommands, ASessionThatDoesNotRememberWritesNothing) {
  Session session = Start();
  session.remembers = false;
  Settings edited = session.settings;
  edited.RunDivX = true;
  EXPECT_TRUE(ApplyOptions(session, edited, {}).saved);
  EXPECT_TRUE(session.StoreListFont(4, {.name = "DejaVu Sans", .size = 11}));
  EXPECT_EQ(File(), "");
  ASSERT_TRUE(session.Override("VertPos0", "60"));
  EXPECT_TRUE(session.settings.RunDivX) << "it holds in this session all the same";
}

TEST_F(OptionsCommands, OptionsHoldAlsoWhenTheyCannotBeWritten) {
  Session session = Start();
  Settings edited = session.settings;
  edited.RunDivX = true;
  edited.BatchToRun = "two\nlines";
  const OptionsEffect effect = ApplyOptions(session, edited, {});
  ASSERT_FALSE(effect.saved);
  EXPECT_THAT(effect.saved.error().message, HasSubstr("BatchToRun"));
  EXPECT_TRUE(session.settings.RunDivX);
  EXPECT_THAT(File(), HasSubstr("RunDivX=-1"));
  EXPECT_THAT(File(), Not(HasSubstr("two")));
}

}  // namespace
}  // namespace captoria
