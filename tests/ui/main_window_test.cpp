// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a person does with the window, and what they then see.
#include "ui/main/main_window.h"

#include <gmock/gmock.h>

#include <QPushButton>
#include <QScreen>
#include <set>

#include "platform/files.h"
#include "tests/ui/main_window_fixture.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kFitted =
    "1 subtitle(s) are outside safe viewing area, but program will fit these subtitles by decreasing font size.";

TEST_F(MainWindow, OpeningAVideoShowsItsSubtitlesCountsAndStreams) {
  EXPECT_EQ(Tabs(), QStringList({"Subtitle 1", "<New>"}));
  EXPECT_THAT(OpenFilm(), ElementsAre(kFitted));
  EXPECT_EQ(window_->windowTitle().toStdString(), "film.srt - Captoria ver. 3.5.0 by Halvard");
  auto* list = Part<QTreeView>("ListView1");
  EXPECT_EQ(list->model()->rowCount(), 2);
  EXPECT_EQ(list->model()->index(1, 0).data(Qt::AccessibleTextRole), "2, outside safe viewing area");
  EXPECT_THAT(Status("lblStatus2").toStdString(), HasSubstr("1 subtitle(s) outside safe viewing area"));
  EXPECT_EQ(Part<QComboBox>("Combo3")->currentText(), "PAL");
  Choose("AviInfo");
  EXPECT_TRUE(Part<QDockWidget>("AviInfoPanel")->isVisible());
  EXPECT_EQ(Part<Info>("Info1")->LineCount(), 2);

  list->selectAll();
  EXPECT_EQ(Status("lblStatus3"), "2 subtitle(s) selected");
  Choose("mnuRightAl");
  EXPECT_EQ(workspace_->project.tracks.Current().cues.front().Tag, "|r");
  list->setCurrentIndex(list->model()->index(1, 0));
  EXPECT_THAT(Status("lblStatus").toStdString(), AllOf(StartsWith("Font size and pos: "), EndsWith("|r")));
  Choose("mnuFitFont");
  EXPECT_EQ(list->currentIndex().row(), 1) << "the cue that is looked at stays";
  Choose("mnuFitFont");
  list->selectAll();
  Choose("mnuOnlyOut");
  EXPECT_EQ(list->model()->rowCount(), 1);
  EXPECT_THAT(list->model()->index(0, 0).data(Qt::ToolTipRole).toString().toStdString(), StartsWith("Fit font size: "));
  Choose("mnuOnlyOut");

  Part<QTabBar>("TabStrip1")->setCurrentIndex(1);
  EXPECT_EQ(Tabs(), QStringList({"Subtitle 1", "Subtitle 2", "<New>"}));
  EXPECT_EQ(list->model()->rowCount(), 0);
  Part<QTabBar>("TabStrip1")->setCurrentIndex(0);
  EXPECT_EQ(Status("lblStatus3"), "2 subtitle(s) selected") << "as they were";
  Choose("mnuCloseSrt");
  EXPECT_EQ(Tabs(), QStringList({"Subtitle 1", "<New>"}));
}

TEST_F(MainWindow, WhatIsDroppedIsOpened) {
  const std::string other = folder_.Put("other.srt", "1\n00:00:01,000 --> 00:00:02,000\nBye\n");
  prompts_.Expect("Captoria", std::optional{other});
  Part<QPushButton>("cmdStartSubtitle")->click();
  EXPECT_THAT(window_->windowTitle().toStdString(), StartsWith("other.srt - "));
  Drop(film_);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(kFitted));
  EXPECT_EQ(workspace_->project.video.AviPath, film_);
  EXPECT_THAT(window_->windowTitle().toStdString(), StartsWith("film.srt - "));
  Drop(other);
  EXPECT_THAT(window_->windowTitle().toStdString(), StartsWith("other.srt - "));
  EXPECT_EQ(workspace_->project.tracks.Count(), 1) << "a single file goes into the current track";
}

TEST_F(MainWindow, CreatesTheSameFilmAsTheCommandLine) {
  OpenFilm();
  workspace_->project.tracks.Current().style.VertPos = 77;
  Choose("mnuMakeDivX");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Creation Finished!"));
  EXPECT_FALSE(Part<JobBar>("jobBar")->isVisible());
  const std::string made = folder_.Get("film.divx");
  ASSERT_FALSE(made.empty());
  const std::string convert =
      std::string{CAPTORIA_BIN "/captoria-cli convert --set VertPos0=77 --set ReplaceDivX=-1 --data '"} +
      folder_.File("other") + "' '" + film_ + "' >/dev/null";
  ASSERT_EQ(std::system(convert.c_str()), 0);
  EXPECT_EQ(folder_.Get("film.divx"), made);
}

TEST_F(MainWindow, CancelLeavesNothingAndTheWindowGoesOn) {
  folder_.Put("film.srt", ManyCues());
  OpenFilm();
  prompts_.TakeMessages();
  QTimer::singleShot(60, window_.get(), [this] {
    EXPECT_TRUE(Part<JobBar>("jobBar")->isVisible());
    EXPECT_FALSE(Part<QTreeView>("ListView1")->isEnabled());
    Part<QPushButton>("cmdCancelJob")->click();
  });
  Choose("mnuMakeDivX");
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_FALSE(FileExists(folder_.File("film.divx")));
  EXPECT_THAT(ListFiles(folder_.File("data/tmp"), "?*.*"), IsEmpty());
  EXPECT_TRUE(Part<QTreeView>("ListView1")->isEnabled());
}

TEST_F(MainWindow, ClosingDuringAJobAsksStopsItAndCloses) {
  folder_.Put("film.srt", ManyCues());
  OpenFilm();
  prompts_.TakeMessages();
  QTimer::singleShot(30, window_.get(), [this] {
    prompts_.Expect("Stop it?", false);
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(Part<JobBar>("jobBar")->IsBusy());
    prompts_.Expect("Stop it?", true);
    EXPECT_FALSE(window_->close()) << "the tools are still at work";
  });
  Choose("mnuMakeDivX");
  QApplication::processEvents();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_FALSE(FileExists(folder_.File("film.divx")));
}

TEST_F(MainWindow, HasATextInALanguageFileForEveryCaption) {
  OpenFilm();
  for (QWidget* widget : window_->findChildren<QWidget*>()) {
    const auto* label = qobject_cast<QLabel*>(widget);
    const auto* button = qobject_cast<QPushButton*>(widget);
    const QString text = label != nullptr ? label->text() : button != nullptr ? button->text() : QString{};
    EXPECT_TRUE(text.isEmpty() || !widget->objectName().isEmpty()) << text.toStdString();
  }
  std::set<QKeySequence> keys;
  for (const QAction* action : window_->findChildren<QAction*>()) {
    const QKeySequence key = action->shortcut();
    EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << key.toString().toStdString() << " stands for two commands";
  }
  for (const QAction* action : window_->menuBar()->actions()) {
    for (const QAction* entry : action->menu()->actions()) {
      EXPECT_TRUE(entry->isSeparator() || entry->menu() != nullptr || !entry->objectName().isEmpty())
          << entry->text().toStdString();
    }
  }
  workspace_->language.document = *LanguageDocument::Parse(R"(<L><Form1_Design TabStrip1_1="Untertitel 1"
      TabStrip1_2="&lt;Neu&gt;" lblText="Text!" lblSubOut=" draußen" lblStream="Spur"/></L>)");
  workspace_->project.SelectLastTab(workspace_->preferences);
  view_.ShowLanguage();
  EXPECT_EQ(Tabs(), QStringList({"Untertitel 1", "Untertitel 2", "<Neu>"}));
  Part<QTabBar>("TabStrip1")->setCurrentIndex(0);
  EXPECT_EQ(Status("lblStatus2"), "1 draußen");
  EXPECT_EQ(Part<Info>("Info1")->Title1(), "Spur");
  EXPECT_EQ(Part<QTreeView>("ListView1")->model()->headerData(3, Qt::Horizontal).toString(), "Text!");
}

TEST_F(MainWindow, TheUnattendedRunIsShownWhenItIsOver) {
  Start(Attendance::Nobody);
  EXPECT_TRUE(window_->Commands().RunUnattended(QString::fromStdString(film_)).film);
  EXPECT_FALSE(folder_.Get("film.divx").empty());
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_EQ(Part<Info>("Info1")->LineCount(), 2);
  EXPECT_EQ(Part<QTreeView>("ListView1")->model()->rowCount(), 2);
}

TEST_F(MainWindow, StartsAgainAsItWasClosed) {
  OpenFilm();
  workspace_->project.tracks.Current().style.VertPos = 66;
  window_->setGeometry(20, 30, 780, 620);
  window_->close();
  EXPECT_THAT(folder_.Get("data/Captoria.ini"), HasSubstr("MainWidth=11700\r\n"));
  Start();
  EXPECT_EQ(window_->geometry().size(), QSize(780, 620));
  EXPECT_EQ(workspace_->project.tracks.Current().style.VertPos, 66);
  const auto recent = Part<QMenu>("mnuRecent")->actions();
  ASSERT_EQ(recent.size(), 1);
  recent.front()->trigger();
  EXPECT_EQ(workspace_->project.video.AviPath, film_);
  EXPECT_EQ(Part<QMenu>("mnuRecent")->actions().size(), 1) << "listed once, however often it is opened";
  workspace_->preferences.settings.MainX = 1e6F;  // on a screen that is gone
  WindowState(*workspace_, window_.get()).Restore();
  EXPECT_TRUE(window_->screen()->geometry().intersects(window_->geometry()));
}

}  // namespace
}  // namespace captoria
