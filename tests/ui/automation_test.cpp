// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Command files and lists of videos, from the window.
#include <gmock/gmock.h>

#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "platform/files.h"
#include "tests/ui/main_window_fixture.h"
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

  // What is done in the dialog that the next command opens.
  template <typename Dialog, typename Act>
  void InDialog(Act act) {
    QTimer::singleShot(0, window_.get(), [act] {
      auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
    });
  }

  // `count` films in the list, each with a subtitle but those whose number `bare` holds.
  std::vector<std::string> PutFilms(int count, const std::vector<int>& bare = {}) {
    std::vector<std::string> films;
    for (int i = 0; i < count; ++i) {
      const std::string stem = "list/film " + std::to_string(10 + i);
      std::filesystem::create_directories(folder_.File("list"));
      std::filesystem::copy_file(film_, folder_.File(stem + ".avi"));
      if (std::ranges::find(bare, i) == bare.end()) folder_.Put(stem + ".en.srt", kCues);
      films.push_back(folder_.File(stem + ".avi"));
    }
    return films;
  }

  void ConvertList(const std::vector<std::string>& films) {
    workspace_->preferences.settings.ShowDos = false;
    prompts_.Expect("Batch convert", films);
    InDialog<frmBatch>([](frmBatch& dialog) {
      dialog.findChild<QPushButton*>("Command1")->click();
      dialog.accept();
    });
    Choose("mnuBatchConvert");
  }
};

TEST_F(Automation, TheMenuHoldsTheCommandFilesOfTheProgramsFolder) {
  EXPECT_EQ(BatchEntries(), QStringList({"- None batch file"}));
  folder_.Put("data/b.cbx", "# dashes\r\nselect 2\r\nSelect 1, \"\", \"\"\r\nPosAlignment 33, r\r\n");
  folder_.Put("data/gone.cbx", "");
  Start();
  EXPECT_EQ(BatchEntries(), QStringList({"b.cbx", "gone.cbx"}));
  OpenFilm();
  prompts_.TakeMessages();
  auto* list = Part<QTreeView>("ListView1");
  list->setCurrentIndex(list->model()->index(0, 0));
  RunBatchEntry("b.cbx");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Error in batch at line 2"));
  EXPECT_EQ(Status("lblStatus"), "Batch commands executed in file b.cbx");
  EXPECT_EQ(Status("lblStatus3"), "2 subtitle(s) selected");
  EXPECT_EQ(list->selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(workspace_->project.tracks.Current().cues[0].Tag, "|33r");
  EXPECT_EQ(Part<QSlider>("sldVertPos")->value(), 33) << "the current cue is shown as it is now";
  EXPECT_TRUE(Part<QLabel>("lblOwnAlign")->isVisible());

  std::filesystem::remove(folder_.File("data/gone.cbx"));
  RunBatchEntry("gone.cbx");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("File not found"));
}

TEST_F(Automation, TheCommandsOfTheSettingsRunAfterEveryLoad) {
  workspace_->preferences.settings.BatchToRun =
      folder_.Put("any.cbx", "Select , \"hello\", \"\"\r\nPosAlignment , l\r\n");
  OpenFilm();
  prompts_.TakeMessages();
  EXPECT_EQ(workspace_->project.tracks.Current().cues[0].Tag, "|l");
  EXPECT_EQ(Status("lblStatus3"), "1 subtitle(s) selected");
  EXPECT_EQ(Status("lblStatus"), "Batch commands executed in file any.cbx");
}

TEST_F(Automation, APlacementIsChosenWhileTheCueIsLookedAt) {
  OpenFilm();
  prompts_.TakeMessages();
  auto* list = Part<QTreeView>("ListView1");
  list->selectAll();
  list->selectionModel()->setCurrentIndex(list->model()->index(0, 0), QItemSelectionModel::NoUpdate);
  InDialog<Form3>([this](Form3& dialog) {
    dialog.findChild<QSlider*>("Slider1")->setValue(5);
    EXPECT_EQ(Part<QSlider>("sldVertPos")->value(), 5);
    dialog.reject();
  });
  Choose("mnuSetPosAlign");
  EXPECT_EQ(Part<QSlider>("sldVertPos")->value(), 40);
  InDialog<Form3>([](Form3& dialog) {
    dialog.findChild<QRadioButton*>("Option1")->click();
    dialog.accept();
  });
  Choose("mnuSetPosAlign");
  for (const SubtitleCue& cue : workspace_->project.tracks.Current().cues) EXPECT_THAT(cue.Tag, HasSubstr("|l"));
  EXPECT_TRUE(Part<QLabel>("lblOwnAlign")->isVisible());
}

TEST_F(Automation, AListOfVideosGivesTheReportOfTheCommandLine) {
  std::vector<std::string> films = PutFilms(18, {1, 7});
  films.push_back(folder_.Put("list/broken.avi", "RIFF and nothing else"));
  folder_.Put("list/broken.srt", kCues);
  films.push_back(folder_.File("list/missing.avi"));
  ConvertList(films);
  const auto report = prompts_.TakeMessages();
  ASSERT_EQ(report.size(), 1U);
  EXPECT_EQ(workspace_->project.tracks.Count(), 1);
  EXPECT_EQ(workspace_->project.video.AviPath, films.back());
  std::vector<std::string> made;
  for (const std::string& film : films) {
    const std::string output = film.substr(0, film.size() - 4) + ".divx";
    made.push_back(FileExists(output) ? *ReadWholeFile(output, 1 << 24) : "");
  }
  EXPECT_THAT(made[1], IsEmpty());
  EXPECT_EQ(std::ranges::count(made, ""), 4);

  std::string convert =
      CAPTORIA_BIN "/captoria-cli convert --quiet --set ReplaceDivX=-1 --data '" + folder_.File("cli") + "'";
  for (const std::string& film : films) convert += " '" + film + "'";
  EXPECT_NE(std::system((convert + " >/dev/null 2>'" + folder_.File("errors") + "'").c_str()), 0);
  std::string expected = report[0];
  std::erase(expected, '\r');
  EXPECT_THAT(folder_.Get("errors"), HasSubstr(expected));
  EXPECT_EQ(*ReadWholeFile(films[0].substr(0, films[0].size() - 4) + ".divx", 1 << 24), made[0]);
}

TEST_F(Automation, CancellingAListKeepsWhatIsFinishedAndTellsIt) {
  const std::vector<std::string> films = PutFilms(4);
  folder_.Put("list/film 11.en.srt", ManyCues());
  bool told = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    const QString label = Part<QLabel>("lblJob")->text();
    if (!label.startsWith("2 of 4, film 11.avi")) return;
    told = true;
    Part<QPushButton>("cmdCancelJob")->click();
  });
  timer.start(1);
  ConvertList(films);
  EXPECT_TRUE(told);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("Stopped. 1 of 4 videos were converted.")));
  EXPECT_TRUE(FileExists(folder_.File("list/film 10.divx")));
  EXPECT_FALSE(FileExists(folder_.File("list/film 11.divx")));
  EXPECT_THAT(ListFiles(folder_.File("data/tmp"), "*"), IsEmpty());
}

}  // namespace
}  // namespace captoria
