// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Command files and lists of videos, from the window.
#include <gmock/gmock.h>

#include <QPushButton>
#include <QRadioButton>
#include <filesystem>

#include "platform/files.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/next_dialog.h"
#include "ui/dialogs/batch_dialog.h"
#include "ui/dialogs/position_dialog.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Automation : public MainWindow {
 protected:
  QStringList BatchEntries() {
    QStringList entries;
    for (const QAction* entry : Part<QMenu>("mnuBatchCommands")->actions()) {
      if (entry->isVisible()) entries << (entry->isEnabled() ? "" : "- ") + entry->text();
    }
    return entries;
  }

  void RunBatchEntry(const QString& name) {
    for (QAction* entry : Part<QMenu>("mnuBatchCommands")->actions()) {
      if (entry->text() == name) return entry->trigger();
    }
    ADD_FAILURE() << name.toStdString();
  }
};

TEST_F(Automation, TheMenuHoldsTheCommandFilesOfTheProgramsFolder) {
  EXPECT_EQ(BatchEntries(), QStringList({"- None batch file"}));
  folder_.Put("data/b & c.cbx", "# dashes\r\nselect 2\r\nSelect 1, \"\", \"\"\r\nPosAlignment 33, r\r\n");
  folder_.Put("data/gone.cbx", "");
  Start();
  EXPECT_EQ(BatchEntries(), QStringList({"b && c.cbx", "gone.cbx"}));
  OpenFilm();
  auto* list = Part<QTreeView>("ListView1");
  list->setCurrentIndex(list->model()->index(0, 0));
  RunBatchEntry("b && c.cbx");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Error in batch at line 2"));
  EXPECT_EQ(Status("lblStatus"), "Batch commands executed in file b & c.cbx");
  EXPECT_EQ(Status("lblStatus3"), "2 subtitle(s) selected");
  EXPECT_EQ(list->selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(workspace_->project.tracks.Current().cues[0].Tag, "|33r");
  EXPECT_EQ(Part<QSlider>("sldVertPos")->value(), 33) << "the current cue is shown as it is now";
  EXPECT_TRUE(Part<QLabel>("lblOwnAlign")->isVisible());

  std::filesystem::remove(folder_.File("data/gone.cbx"));
  RunBatchEntry("gone.cbx");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("File not found"));
}

TEST_F(Automation, APlacementIsChosenWhileTheCueIsLookedAt) {
  OpenFilm();
  auto* list = Part<QTreeView>("ListView1");
  list->selectAll();
  list->selectionModel()->setCurrentIndex(list->model()->index(0, 0), QItemSelectionModel::NoUpdate);
  InNextDialog<Form3>([this](Form3& dialog) {
    dialog.findChild<QSlider*>("Slider1")->setValue(5);
    EXPECT_EQ(Part<QSlider>("sldVertPos")->value(), 5);
    EXPECT_TRUE(Part<QLabel>("lblOwnPos")->isVisible());
    dialog.reject();
  });
  Choose("mnuSetPosAlign");
  EXPECT_EQ(Part<QSlider>("sldVertPos")->value(), 40);
  for (const char* note : {"lblOwnPos", "lblOwnAlign"}) EXPECT_FALSE(Part<QLabel>(note)->isVisible()) << note;
  InNextDialog<Form3>([](Form3& dialog) {
    dialog.findChild<QRadioButton*>("Option1")->click();
    dialog.accept();
  });
  Choose("mnuSetPosAlign");
  for (const SubtitleCue& cue : workspace_->project.tracks.Current().cues) EXPECT_THAT(cue.Tag, HasSubstr("|l"));
  EXPECT_TRUE(Part<QLabel>("lblOwnAlign")->isVisible());
}

TEST_F(Automation, CancellingAListKeepsWhatIsFinishedAndTellsIt) {
  std::vector<std::string> films{folder_.Put("list/broken.avi", "RIFF and nothing else")};
  folder_.Put("list/broken.srt", kCues);
  for (const char* name : {"list/film 10", "list/film 11", "list/film 12"}) {
    films.push_back(folder_.Put(std::string{name} + ".avi", *ReadWholeFile(film_, 1 << 24)));
    folder_.Put(std::string{name} + ".en.srt", films.size() == 3 ? ManyCues() : kCues);
  }
  bool told = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    const QString label = Part<QLabel>("lblJob")->text();
    if (!label.startsWith("3 of 4, film 11.avi")) return;
    told = true;
    Part<QPushButton>("cmdCancelJob")->click();
  });
  timer.start(1);
  prompts_.Expect("Batch convert", films);
  InNextDialog<frmBatch>([](frmBatch& dialog) {
    dialog.findChild<QPushButton*>("Command1")->click();
    dialog.accept();
  });
  Choose("mnuBatchConvert");
  EXPECT_TRUE(told);
  EXPECT_THAT(prompts_.TakeMessages(),
              ElementsAre(AllOf(HasSubstr("Stopped. 1 of 4 videos were converted."), HasSubstr("broken.avi"))));
  EXPECT_TRUE(FileExists(folder_.File("list/film 10.divx")));
  EXPECT_FALSE(FileExists(folder_.File("list/film 11.divx")));
  EXPECT_THAT(ListFiles(folder_.File("data/tmp"), "?*.*"), IsEmpty());
}

}  // namespace
}  // namespace captoria
