// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Going over from one language to another.
#include <gmock/gmock.h>

#include "app/language_commands.h"
#include "localisation/language_files.h"
#include "platform/files.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/program_texts.h"

namespace captoria {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kShipped = CAPTORIA_TEST_DATA "/../../assets/languages/";

class LanguagesOfTheWindow : public MainWindow {
 protected:
  QAction* Entry(const QString& name) {
    for (QAction* entry : Part<QMenu>("mnuLanguages")->actions()) {
      if (entry->objectName() == "mnuLangDef" && entry->text() == name) return entry;
    }
    return nullptr;
  }
};

// scripts/make_language.sh writes the file anew.
TEST_F(LanguagesOfTheWindow, TheEnglishFileIsThatOfTheProgram) {
  const std::string written =
      WriteLanguage(ProgramTexts(folder_.File("empty"), prompts_), "Captoria contributors", CAPTORIA_VERSION);
  EXPECT_EQ(*ReadWholeFile(std::string{kShipped} + "English.Captoria.exe.xml", 1 << 20), written);
}

TEST_F(LanguagesOfTheWindow, EveryTextChangesAndNothingIsLost) {
  folder_.Put("film.b.srt", kCues);
  folder_.Put("film.c.srt", kCues);
  OpenFilm();
  Part<QTabBar>("TabStrip1")->setCurrentIndex(1);
  auto* list = Part<QTreeView>("ListView1");
  list->selectAll();
  workspace_->project.tracks.Current().style.VertPos = 77;
  Entry("German")->trigger();
  EXPECT_EQ(workspace_->language.LangFile, "German.Captoria.exe");
  EXPECT_TRUE(Entry("German")->isChecked());

  const auto german = LanguageDocument::Load(std::string{kShipped} + "German.Captoria.exe.xml");
  ASSERT_TRUE(german);
  for (const Caption& caption : CaptionsOf(*window_)) {
    const auto text = german->Text("Form1_Design", caption.key.toStdString());
    // Tabs are numbered, and "<New>" is the last of them.
    if (!text || caption.key.startsWith("TabStrip1_")) continue;
    EXPECT_EQ(caption.text.toStdString(), *text) << caption.key.toStdString();
  }
  EXPECT_EQ(Tabs().size(), 4);
  EXPECT_EQ(Tabs().back().toStdString(), *german->Text("Form1_Design", "TabStrip1_2"));
  EXPECT_EQ(Status("lblStatus3").toStdString(), "2" + *german->Text("Form1_Design", "lblSubSelected"));
  EXPECT_EQ(Status("lblStatus4"), "Language by Captoria contributors (" CAPTORIA_VERSION ")");
  EXPECT_EQ(Part<QTabBar>("TabStrip1")->currentIndex(), 1);
  EXPECT_EQ(list->selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(workspace_->project.tracks.Current().style.VertPos, 77);
  EXPECT_THAT(window_->windowTitle().toStdString(), HasSubstr("film.c.srt"));
}

TEST_F(LanguagesOfTheWindow, EachFitsASmallScreen) {
  FileRegistry registry(folder_.File("registry"));
  ContextMenuEntry entry(registry, FileActions(ProcessEnvironment()), "/nowhere");
  for (const LanguageFile& file : ListLanguages(workspace_->folders)) {
    ASSERT_TRUE(LoadNewLang(*workspace_, file.base));
    const Form2 options(*workspace_, entry, {}, nullptr);
    const frmWelcome welcome(workspace_->language.document, nullptr);
    EXPECT_TRUE(welcome.findChild<QLabel*>("Label4")->text().contains('<')) << "a tab is named, not taken for a tag";
    for (const QSize size : {window_->minimumSizeHint(), options.sizeHint(), welcome.size()}) {
      EXPECT_LE(size.width(), 1024) << file.name;
      EXPECT_LE(size.height(), 600) << file.name;
    }
  }
  ASSERT_TRUE(LoadNewLang(*workspace_, kInitialLanguage));
}

TEST_F(LanguagesOfTheWindow, TheChosenOneIsThereAgainAtTheNextStart) {
  Entry("Hebrew")->trigger();
  EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
  OpenFilm();
  QApplication::processEvents();
  EXPECT_LT(Part<QWidget>("optLeft")->x(), Part<QWidget>("optRight")->x()) << "the frame is not mirrored";
  window_->close();
  Start();
  EXPECT_TRUE(Entry("Hebrew")->isChecked());
  EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
  Entry("English")->trigger();
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
  EXPECT_EQ(Part<QMenu>("mnuFile")->title(), "&File");
}

TEST_F(LanguagesOfTheWindow, OneMayBeBrokenOrGone) {
  const std::string odd = folder_.Put("data/Odd & even.Captoria.exe.xml", "<Language><Form1_Design mnuFile=");
  Start();
  Entry("German")->trigger();
  Entry("Odd && even")->trigger();
  EXPECT_EQ(Part<QMenu>("mnuFile")->title(), "&File");
  EXPECT_THAT(Status("lblStatus").toStdString(), HasSubstr(odd));
  std::remove(odd.c_str());
  Entry("English")->trigger();
  Entry("Odd && even")->trigger();
  EXPECT_TRUE(Entry("English")->isChecked()) << "a file that is gone changes nothing";
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
}

}  // namespace
}  // namespace captoria
