// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The dialogs that select cues and place them, for the track on screen and for command files.
#include <gmock/gmock.h>

#include <QRadioButton>

#include "app/load_subtitle.h"
#include "tests/support/qt_application.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/dialogs/select_subs_dialog.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommandDialogs : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

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

  TestFolder folder_;
  ScriptedPrompts prompts_;
  QuietView view_;
  Workspace workspace_{{.executable = CAPTORIA_BIN, .data = folder_.File("data")}, prompts_, view_};
};

struct Shape {
  const char* name;
  int lines, start;
  const char* start_text;
  int end;
  const char* end_text;
  const char* command;
  std::vector<bool> selected;
};

class SelectDialog : public CommandDialogs, public testing::WithParamInterface<Shape> {
 protected:
  static void Fill(QDialog& dialog) {
    const Shape& shape = GetParam();
    dialog.show();
    const auto combo = [&](const char* name) { return dialog.findChild<QComboBox*>(name); };
    const auto text = [&](const char* name) { return dialog.findChild<QLineEdit*>(name); };
    EXPECT_FALSE(text("txtStart")->isVisible());
    combo("cmbNumOfLines")->setCurrentIndex(shape.lines);
    combo("cmbStart")->setCurrentIndex(shape.start);
    combo("cmbEnd")->setCurrentIndex(shape.end);
    EXPECT_EQ(text("txtStart")->isVisible(), shape.start > 0);
    EXPECT_EQ(text("txtEnd")->isVisible(), shape.end > 0);
    text("txtStart")->setText(shape.start_text);
    text("txtEnd")->setText(shape.end_text);
    dialog.accept();
  }
};

TEST_P(SelectDialog, SelectsAndComposesTheSame) {
  Select({true, true, true});
  frmSelectSubs apply(workspace_, CommandMode::Apply, nullptr);
  Fill(apply);
  std::vector<bool> selected;
  for (const SubtitleCue& cue : Cues()) selected.push_back(cue.Selected);
  EXPECT_EQ(selected, GetParam().selected);
  const auto count = std::ranges::count(selected, true);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(std::to_string(count) + " subtitles selected"));
  EXPECT_EQ(apply.ComposedCommand(), std::nullopt);

  frmSelectSubs compose(workspace_, CommandMode::ComposeOnly, nullptr);
  Fill(compose);
  EXPECT_EQ(compose.ComposedCommand(), GetParam().command);
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, SelectDialog,
    testing::Values(Shape{"TwoLines", 2, 0, "", 0, "", R"(Select 2, "", "")", {true, false, true}},
                    Shape{"EveryLineStarts", 0, 2, "-", 0, "", R"(Select , "-"A, "")", {true, false, false}},
                    Shape{"FirstLineStarts", 0, 1, "-", 0, "", R"(Select , "-", "")", {true, false, true}},
                    Shape{"EveryLineEnds", 0, 0, "", 2, "!?", R"(Select , "", "?!"A)", {true, false, false}},
                    Shape{"AnyCase", 1, 1, "ABC", 1, "EF", R"(Select 1, "abc", "fe")", {false, true, false}},
                    // The box of a condition that is not set is not looked at.
                    Shape{"HiddenText", 1, 0, "x", 0, "x", R"(Select 1, "", "")", {false, true, false}}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST_F(CommandDialogs, SelectingWantsACondition) {
  frmSelectSubs dialog(workspace_, CommandMode::ComposeOnly, nullptr);
  dialog.show();
  dialog.accept();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Please set something"));
  dialog.reject();
  EXPECT_EQ(dialog.ComposedCommand(), std::nullopt);
}

struct Start {
  const char* name;
  const char* tag;
  int position;
  const char* option;
};

class PositionDialog : public CommandDialogs, public testing::WithParamInterface<Start> {};

TEST_P(PositionDialog, BeginsWithWhatTheCueHas) {
  workspace_.project.tracks.Current().style.InAlign = Alignment::Left;
  Cues()[0].Tag = GetParam().tag;
  const Form3 dialog(workspace_, CommandMode::Apply, {&Cues()[0], 40, 500}, nullptr);
  EXPECT_EQ(dialog.findChild<QSlider*>("Slider1")->value(), GetParam().position);
  EXPECT_EQ(dialog.findChild<QLabel*>("lblPos")->text(), QString::number(GetParam().position));
  EXPECT_TRUE(dialog.findChild<QRadioButton*>(GetParam().option)->isChecked());
  EXPECT_FALSE(dialog.findChild<QCheckBox*>("chkVer")->isChecked());
  EXPECT_FALSE(dialog.findChild<QCheckBox*>("chkIn")->isChecked());
  EXPECT_EQ(Cues()[0].Tag, GetParam().tag) << "nothing was chosen yet";
}

INSTANTIATE_TEST_SUITE_P(Tags, PositionDialog,
                         testing::Values(Start{"Both", "x|35r", 35, "Option3"},
                                         Start{"AlignmentAlone", "x|c", 40, "Option2"},
                                         Start{"Neither", "x|", 40, "Option1"},
                                         Start{"NoPlacement", "18", 40, "Option1"}),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST_F(CommandDialogs, APlacementIsSeenAtOnceAndUndoneByCancel) {
  Cues()[1].Tag = "18|40l";
  Select({true, false, true});
  int seen = 0;
  Form3 dialog(workspace_, CommandMode::Apply, {&Cues()[1], 40, 500}, nullptr);
  QObject::connect(&dialog, &Form3::Previewed, [&] { ++seen; });
  dialog.show();
  dialog.findChild<QSlider*>("Slider1")->setValue(77);
  EXPECT_THAT(Tags(), ElementsAre("", "18|77", ""));
  dialog.findChild<QRadioButton*>("Option3")->click();
  EXPECT_THAT(Tags(), ElementsAre("", "18|77r", ""));
  EXPECT_GE(seen, 2);
  dialog.close();
  EXPECT_THAT(Tags(), ElementsAre("", "18|40l", ""));
}

TEST_F(CommandDialogs, APlacementGoesToTheSelectedCues) {
  Cues()[1].Tag = "18|40l";
  Cues()[2].Tag = "12|9c";
  Select({true, false, true});
  Form3 dialog(workspace_, CommandMode::Apply, {&Cues()[1], 40, 500}, nullptr);
  dialog.show();
  dialog.accept();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Select something to update"));
  dialog.findChild<QRadioButton*>("Option3")->click();
  dialog.accept();
  EXPECT_THAT(Tags(), ElementsAre("|r", "18|40l", "12|r")) << "the current cue is not selected";

  Form3 compose(workspace_, CommandMode::ComposeOnly, {&Cues()[1], 40, 500}, nullptr);
  compose.findChild<QRadioButton*>("Option1")->click();
  compose.findChild<QSlider*>("Slider1")->setValue(0);
  EXPECT_EQ(Cues()[1].Tag, "18|40l");
  compose.accept();
  EXPECT_EQ(compose.ComposedCommand(), "PosAlignment 0, l");
}

}  // namespace
}  // namespace captoria
