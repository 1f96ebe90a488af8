// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/preferences.h"

#include <gmock/gmock.h>

#include "app/load_subtitle.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class PreferencesTest : public testing::Test {
 protected:
  Workspace Start() { return {{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_}; }

  std::string File() const { return folder_.Get("Captoria.ini"); }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
};

constexpr const char* kOneCue = "1\n00:00:01,000 --> 00:00:02,000\nHello\n";

// Opens `count` tracks and gives each a vertical position of its own.
void OpenTracks(Workspace& workspace, const std::string& file, int count, int first_position) {
  for (int i = 0; i < count; ++i) {
    if (i > 0) workspace.project.SelectLastTab(workspace.preferences);
    ASSERT_TRUE(LoadFileToList(workspace, file, {}));
    workspace.project.tracks.Current().style.VertPos = first_position + i;
  }
}

TEST_F(PreferencesTest, TracksThatAreNotOpenKeepTheirStylesInTheFile) {
  const std::string file = folder_.Put("a.srt", kOneCue);
  {
    Workspace first = Start();
    OpenTracks(first, file, 3, 50);
    first.project.tracks.Current().style.RightToLeft = true;
    ASSERT_TRUE(SaveAll(first.preferences, first.project));
  }
  {
    Workspace second = Start();
    EXPECT_EQ(second.project.tracks.Current().style.VertPos, 50);
    OpenTracks(second, file, 2, 60);
    ASSERT_TRUE(SaveAll(second.preferences, second.project));
  }
  Workspace third = Start();
  for (int i = 0; i < 3; ++i) {
    if (i > 0) third.project.SelectLastTab(third.preferences);
    ASSERT_TRUE(LoadFileToList(third, file, {}));
  }
  EXPECT_EQ(third.project.tracks.Open()[1].style.VertPos, 61);
  EXPECT_EQ(third.project.tracks.Open()[2].style.VertPos, 52) << "saved by the first run, not open in the second";
  EXPECT_TRUE(third.project.tracks.Open()[2].style.RightToLeft);
}

TEST_F(PreferencesTest, ADamagedSettingsFileIsSetAsideToldAndReplacedOnlyByTheNextSave) {
  const std::string zeros(500, '\0');
  folder_.Put("Captoria.ini", zeros);
  Workspace workspace = Start();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("Captoria.ini.damaged")));
  EXPECT_EQ(folder_.Get("Captoria.ini.damaged"), zeros);
  EXPECT_EQ(workspace.project.tracks.Current().style.VertPos, 40);
  ASSERT_TRUE(SaveAll(workspace.preferences, workspace.project));
  EXPECT_THAT(folder_.Get("Captoria.ini"), HasSubstr("VertPos0=40"));
}

TEST_F(PreferencesTest, AFirstSaveCreatesTheDataFolder) {
  Workspace workspace{{.executable = folder_.Path(), .data = folder_.File("new/captoria")}, prompts_, view_};
  ASSERT_TRUE(SaveAll(workspace.preferences, workspace.project));
  EXPECT_TRUE(FileExists(folder_.File("new/captoria/Captoria.ini")));
}

TEST_F(PreferencesTest, StoringAKeyChangesNothingElse) {
  Workspace workspace = Start();
  workspace.project.tracks.Current().style.font.size = 40;
  workspace.preferences.settings.RunDivX = true;
  folder_.Put("Captoria.ini", "[General]\r\nReplaceDivX=-1\r\n");
  ASSERT_TRUE(workspace.preferences.Store("DivXMuxPath", "/tools/mux"));
  EXPECT_EQ(workspace.preferences.settings.DivXMuxPath, "/tools/mux");
  EXPECT_EQ(workspace.project.tracks.Current().style.font.size, 40);
  EXPECT_TRUE(workspace.preferences.settings.RunDivX);
  EXPECT_FALSE(workspace.preferences.settings.ReplaceDivX) << "the file is not read again";
  EXPECT_EQ(File(), "[General]\r\nReplaceDivX=-1\r\nDivXMuxPath=/tools/mux\r\n");
}

TEST_F(PreferencesTest, ANewTrackTakesTheStyleThatTheFileHasThen) {
  Workspace workspace = Start();
  folder_.Put("Captoria.ini", "[General]\r\nVertPos1=70\r\nHorPos1=9\r\n");
  ASSERT_TRUE(workspace.preferences.Override("HorPos1", "-5"));
  ASSERT_TRUE(LoadFileToList(workspace, folder_.Put("a.srt", kOneCue), {}));
  workspace.project.SelectLastTab(workspace.preferences);
  EXPECT_EQ(workspace.project.tracks.Current().style.VertPos, 70);
  EXPECT_EQ(workspace.project.tracks.Current().style.HorPos, -5) << "what was overridden goes before the file";
}

TEST_F(PreferencesTest, ARunThatDoesNotRememberWritesNothing) {
  Workspace workspace = Start();
  workspace.preferences.remembers = false;
  ASSERT_TRUE(workspace.preferences.Store("RunDivX", "-1"));
  EXPECT_TRUE(workspace.preferences.StoreListFont(4, {.name = "DejaVu Sans", .size = 11}));
  EXPECT_TRUE(SaveAll(workspace.preferences, workspace.project));
  EXPECT_EQ(File(), "");
  EXPECT_TRUE(workspace.preferences.settings.RunDivX) << "it holds in this run all the same";
  EXPECT_FALSE(workspace.preferences.Override("NoKey", "1"));
  EXPECT_FALSE(workspace.preferences.Override("VertPos0", "high"));
}

TEST_F(PreferencesTest, OptionsHoldAlsoIfTheyCannotBeWritten) {
  Workspace workspace = Start();
  Settings edited = workspace.preferences.settings;
  edited.RunDivX = true;
  edited.BatchToRun = "two\nlines";
  const auto saved = workspace.preferences.StoreOptions(edited);
  ASSERT_FALSE(saved);
  EXPECT_THAT(saved.error().message, HasSubstr("BatchToRun"));
  EXPECT_TRUE(workspace.preferences.settings.RunDivX);
  EXPECT_THAT(File(), HasSubstr("RunDivX=-1"));
  EXPECT_THAT(File(), Not(HasSubstr("two")));
}

}  // namespace
}  // namespace captoria
