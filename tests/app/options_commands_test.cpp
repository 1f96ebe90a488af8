// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/options_commands.h"
#include "app/workspace.h"

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
  Workspace Start() { return {{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_}; }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
};

TEST_F(OptionsCommands, OnlyOptionsAreTaken) {
  Workspace workspace = Start();
  Settings edited = workspace.preferences.settings;
  edited.RunDivX = true;
  edited.Lang = "Greek";
  edited.MainWidth = 1;
  const OptionsEffect effect = ApplyOptions(workspace.preferences, workspace.project, edited, {});
  EXPECT_TRUE(workspace.preferences.settings.RunDivX);
  EXPECT_EQ(workspace.preferences.settings.Lang, "English");
  EXPECT_EQ(workspace.preferences.settings.MainWidth, 9000);
  EXPECT_FALSE(effect.frame_changed || effect.back_color_or_width_changed || effect.list_fonts_changed);
}

TEST_F(OptionsCommands, SaysWhatChangesOnScreen) {
  Workspace workspace = Start();
  Settings edited = workspace.preferences.settings;
  edited.FrameForPreview = 51;
  EXPECT_TRUE(ApplyOptions(workspace.preferences, workspace.project, edited, {}).frame_changed);
  edited.BackColor = 0;
  EXPECT_TRUE(ApplyOptions(workspace.preferences, workspace.project, edited, {}).back_color_or_width_changed);
  edited.UseBmpToXSub = false;
  EXPECT_TRUE(ApplyOptions(workspace.preferences, workspace.project, edited, {}).back_color_or_width_changed);
  ListFonts fonts;
  fonts[1] = Font{.name = "Nobody's"};
  EXPECT_FALSE(ApplyOptions(workspace.preferences, workspace.project, edited, fonts).list_fonts_changed)
      << "there is one track";
  fonts[0] = Font{.name = "DejaVu Sans", .size = 11};
  EXPECT_TRUE(ApplyOptions(workspace.preferences, workspace.project, edited, fonts).list_fonts_changed);
  EXPECT_EQ(ListFontOf(workspace.preferences, workspace.project, 0).name, "DejaVu Sans");
}

}  // namespace
}  // namespace captoria
