// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/run_commands.h"

#include <gmock/gmock.h>

#include "app/load_subtitle.h"
#include "app/placement_commands.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class CommandFiles : public testing::Test {
 protected:
  CommandFiles() {
    for (const char* text : {"One", "Two\r\nlines", "- And\r\n- two"}) {
      cues().push_back({std::to_string(cues().size() + 1), {}, {}, text, "12|40l"});
    }
    workspace_.project.tracks.Current().outside = {{.row = 1}, {.row = 2}};
  }

  std::vector<SubtitleCue>& cues() { return workspace_.project.tracks.Current().cues; }

  Texts Tags() {
    Texts tags;
    for (const SubtitleCue& cue : cues()) tags.push_back(cue.Tag);
    return tags;
  }

  std::optional<CommandReport> Run(const std::string& commands) {
    return RunBatch(workspace_, folder_.Put("a.cbx", commands));
  }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
  Workspace workspace_{{.executable = folder_.File("bin"), .data = folder_.File("data")}, prompts_, view_};
};

struct PlacementRow {
  const char* name;
  std::string tag;
  PlacementCommand command;
  std::string placed;
};

TEST_F(CommandFiles, APlacementReplacesTheOwnOneOfCuesSelectedInTheListOfAll) {
  for (const PlacementRow& row : {PlacementRow{"position", "12|40l", {25, "c", true, false}, "12|25"},
                                  PlacementRow{"alignment", "12|40l", {25, "c", false, true}, "12|c"},
                                  PlacementRow{"both", "12|40l", {25, "c", true, true}, "12|25c"},
                                  PlacementRow{"neither", "12|40l", {25, "c", false, false}, "12|"},
                                  PlacementRow{"no bar", "7", {25, "c", true, true}, "7|25c"},
                                  PlacementRow{"any text", "", {-3, "Left", true, true}, "|-3Left"}}) {
    for (SubtitleCue& cue : cues()) cue.Tag = row.tag;
    cues()[1].Selected = true;
    workspace_.project.tracks.Current().outside[1].Selected = true;
    workspace_.project.only_outside = true;
    RunPosAlCommand(workspace_.project, row.command);
    EXPECT_THAT(Tags(), ElementsAre(row.tag, row.placed, row.tag)) << row.name;
  }
}

TEST_F(CommandFiles, AnAlignmentGoesToWhatIsSelectedInTheListOnScreen) {
  workspace_.project.tracks.Current().outside[1].Selected = true;
  cues()[0].Selected = cues()[1].Selected = true;
  workspace_.project.only_outside = true;
  SetAlignForSelectedSubs(workspace_.project, Alignment::Right);
  EXPECT_THAT(Tags(), ElementsAre("12|40l", "12|40l", "12|40r"));
  workspace_.project.only_outside = false;
  SetAlignForSelectedSubs(workspace_.project, Alignment::Center);
  EXPECT_THAT(Tags(), ElementsAre("12|40c", "12|40c", "12|40r"));
}

TEST_F(CommandFiles, RunInOrderPastFaultyLines) {
  const auto report = Run(
      "# Dashes\r\nselect 2, \"\", \"\"\r\nposalignment 25, \r\nselect 2\r\nselect , \"-\"A, \"\"\r\nposalignment\r\n"
      "posalignment 9\r\nposalignment , r\r\n");
  EXPECT_THAT(Tags(), ElementsAre("12|40l", "12|25", "12|r"));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Error in batch at line 4", "Error in batch at line 7"));
  ASSERT_TRUE(report);
  EXPECT_EQ(report->file_name, "a.cbx");
  EXPECT_EQ(report->selected, 1u);
  EXPECT_THAT(view_.commands_run, ElementsAre("a.cbx: 1"));
}

TEST_F(CommandFiles, AFileOfNoCommandsIsShownAndKeepsTheSelection) {
  cues()[0].Selected = true;
  ASSERT_TRUE(Run("# nothing\r\n\r\n"));
  EXPECT_THAT(view_.commands_run, ElementsAre("a.cbx: 1"));
}

TEST_F(CommandFiles, AnUnattendedRunShowsNoBox) {
  Workspace alone(workspace_.folders, prompts_, view_, Attendance::Nobody);
  ASSERT_TRUE(RunBatch(alone, folder_.Put("a.cbx", "select 2")));
  EXPECT_THAT(view_.warnings, ElementsAre(HasSubstr("a.cbx, line 1: ")));
  EXPECT_FALSE(RunBatch(alone, folder_.File("none.cbx")));
  EXPECT_THAT(view_.warnings.back(), HasSubstr("none.cbx"));
}

TEST_F(CommandFiles, AFileThatCannotBeReadIsToldAndRunsNothing) {
  EXPECT_FALSE(RunBatch(workspace_, folder_.File("none.cbx")));
  EXPECT_FALSE(Run(std::string(10 << 20, '\n') + "select 1,,"));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("none.cbx"), HasSubstr("a.cbx: has more than 64 KiB")));
  EXPECT_THAT(view_.commands_run, IsEmpty());
}

TEST_F(CommandFiles, EveryLoadOfASubRipFileRunsTheFileOfTheSettings) {
  const std::string srt = folder_.Put("a.srt",
                                      "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n"
                                      "2\n00:00:03,000 --> 00:00:04,000\n" +
                                          std::string(60, 'W') + "\n");
  const std::string idx = folder_.Put("a.idx", "");
  workspace_.preferences.settings.BatchToRun = folder_.Put("b.cbx", "select , \"w\", \"\"\nposalignment 9, \n");
  ASSERT_TRUE(LoadFileToList(workspace_, srt, {}));
  EXPECT_EQ(cues()[0].Tag, "");
  EXPECT_THAT(cues()[1].Tag, testing::MatchesRegex("[0-9.,]+\\|9")) << "behind the size it was fitted to";
  EXPECT_THAT(view_.commands_run, ElementsAre("b.cbx: 1"));

  ASSERT_TRUE(LoadFileToList(workspace_, idx, {}));
  for (const std::string& none : {std::string{}, std::string{"  "}, folder_.File("none.cbx"), folder_.Path()}) {
    workspace_.preferences.settings.BatchToRun = none;
    ASSERT_TRUE(LoadFileToList(workspace_, srt, {}));
  }
  EXPECT_EQ(view_.commands_run.size(), 1u);
  EXPECT_THAT(prompts_.TakeMessages(), testing::Each(HasSubstr("outside safe viewing area")));
}

TEST_F(CommandFiles, AreListedFromTheProgramsFoldersWithTheUsersOwnInFront) {
  for (const char* name : {"bin/b.cbx", "bin/both.cbx", "bin/no.txt", "data/a.CBX", "data/both.cbx"}) {
    folder_.Put(name, "");
  }
  EXPECT_THAT(ListCommandFiles(workspace_.folders), ElementsAre("b.cbx", "both.cbx", "a.CBX"));
  EXPECT_EQ(CommandFilePath(workspace_.folders, "b.cbx"), folder_.File("bin/b.cbx"));
  EXPECT_EQ(CommandFilePath(workspace_.folders, "both.cbx"), folder_.File("data/both.cbx"));
}

}  // namespace
}  // namespace captoria
