// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The dialogs that select cues and place them, for the track on screen and for command files.
#include <QRadioButton>

#include "app/load_subtitle.h"
#include "tests/ui/workspace_fixture.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/dialogs/select_subs_dialog.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommandDialogs : public WorkspaceFixture {
 protected:
  CommandDialogs() {
    const std::string file = folder_.Put("f.srt",
                                         "1\n00:00:01,000 --> 00:00:02,000\n-Why!?\n-No!?\n\n"
                                         "2\n00:00:03,000 --> 00:00:04,000\nAbcdef\n\n"
                                         "3\n00:00:05,000 --> 00:00:06,000\n-One\ntwo\n");
    EXPECT_TRUE(LoadFileToList(workspace_, file, {.encoding{}, .measure = false}));
  }

  std::vector<SubtitleCue>& Cues() { return workspace_.project.tracks.Current().cues; }

  std::vector<std::string> Tags() {
    std::vector<std::string> tags;
    for (const SubtitleCue& cue : Cues()) tags.push_back(cue.Tag);
    return tags;
  }

  void Select(std::initializer_list<bool> selected) {
    auto cue = Cues().begin();
    for (const bool one : selected) (cue++)->Selected = one;
  }
};

TEST_F(CommandDialogs, ConditionsComposeACommand) {
  struct Shape {
    int lines, start;
    const char* start_text;
    int end;
    const char* end_text;
    const char* command;
  };
  for (const auto& [lines, start, start_text, end, end_text, command] :
       {Shape{2, 0, "", 0, "", R"(Select 2, "", "")"},
        {0, 2, "-", 0, "", R"(Select , "-"A, "")"},
        {0, 1, "-", 0, "", R"(Select , "-", "")"},
        {0, 0, "", 2, "!?", R"(Select , "", "?!"A)"},
        {1, 1, "ABC", 1, "EF", R"(Select 1, "abc", "fe")"},
        {1, 0, "hidden", 0, "hidden", R"(Select 1, "", "")"}}) {
    SCOPED_TRACE(command);
    frmSelectSubs dialog(workspace_, CommandMode::ComposeOnly, nullptr);
    dialog.show();
    auto &starts = PartOf<QLineEdit>(dialog, "txtStart"), &ends = PartOf<QLineEdit>(dialog, "txtEnd");
    EXPECT_FALSE(starts.isVisible());
    PartOf<QComboBox>(dialog, "cmbNumOfLines").setCurrentIndex(lines);
    PartOf<QComboBox>(dialog, "cmbStart").setCurrentIndex(start);
    PartOf<QComboBox>(dialog, "cmbEnd").setCurrentIndex(end);
    EXPECT_EQ(starts.isVisible(), start > 0);
    EXPECT_EQ(ends.isVisible(), end > 0);
    starts.setText(start_text);
    ends.setText(end_text);
    dialog.accept();
    EXPECT_EQ(dialog.ComposedCommand(), command);
    EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  }
}

TEST_F(CommandDialogs, SelectingWantsAConditionAndSelects) {
  Select({true, true, true});
  frmSelectSubs dialog(workspace_, CommandMode::Apply, nullptr);
  dialog.show();
  dialog.accept();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Please set something"));
  dialog.findChild<QComboBox*>("cmbNumOfLines")->setCurrentIndex(1);
  dialog.accept();
  EXPECT_EQ(dialog.ComposedCommand(), std::nullopt);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("1 subtitles selected"));
  for (const SubtitleCue& cue : Cues()) EXPECT_EQ(cue.Selected, cue.Number == "2");
}

TEST_F(CommandDialogs, APlacementBeginsWithWhatTheCueHas) {
  struct Start {
    const char* tag;
    int position;
    const char* option;
  };
  workspace_.project.tracks.Current().style.InAlign = Alignment::Left;
  for (const auto& [tag, position, option] :
       {Start{"x|35r", 35, "Option3"}, {"x|c", 40, "Option2"}, {"x|", 40, "Option1"}, {"18", 40, "Option1"}}) {
    SCOPED_TRACE(tag);
    Cues()[0].Tag = tag;
    const Form3 dialog(workspace_, CommandMode::Apply, {&Cues()[0], 40, 500}, nullptr);
    EXPECT_EQ(dialog.findChild<QSlider*>("Slider1")->value(), position);
    EXPECT_EQ(dialog.findChild<QLabel*>("lblPos")->text(), QString::number(position));
    EXPECT_TRUE(dialog.findChild<QRadioButton*>(option)->isChecked());
    for (const char* box : {"chkVer", "chkIn"}) EXPECT_FALSE(dialog.findChild<QCheckBox*>(box)->isChecked()) << box;
    EXPECT_EQ(Cues()[0].Tag, tag) << "nothing was chosen yet";
  }
}

TEST_F(CommandDialogs, APlacementIsSeenAtOnceAndGoesToTheSelectedCues) {
  Cues()[1].Tag = "18|40l";
  Cues()[2].Tag = "12|9c";
  Select({true, false, true});
  Form3 dialog(workspace_, CommandMode::Apply, {&Cues()[1], 40, 500}, nullptr);
  dialog.show();
  dialog.accept();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Select something to update"));
  PartOf<QRadioButton>(dialog, "Option3").click();
  EXPECT_THAT(Tags(), ElementsAre("", "18|r", "12|9c"));
  PartOf<QSlider>(dialog, "Slider1").setValue(77);
  EXPECT_THAT(Tags(), ElementsAre("", "18|77r", "12|9c"));
  PartOf<QCheckBox>(dialog, "chkVer").click();
  dialog.accept();
  EXPECT_THAT(Tags(), ElementsAre("|r", "18|40l", "12|r")) << "the current cue is not selected";

  Form3 compose(workspace_, CommandMode::ComposeOnly, {&Cues()[1], 40, 500}, nullptr);
  PartOf<QRadioButton>(compose, "Option1").click();
  PartOf<QSlider>(compose, "Slider1").setValue(0);
  EXPECT_EQ(Cues()[1].Tag, "18|40l");
  compose.accept();
  EXPECT_EQ(compose.ComposedCommand(), "PosAlignment 0, l");
}

}  // namespace
}  // namespace captoria
