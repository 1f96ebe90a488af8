// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/language_editor/create_lang_dialog.h"

#include <QKeyEvent>

#include "tests/ui/workspace_fixture.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kOriginal = R"(<?xml version="1.0" encoding="UTF-8"?>
<Language>
  <Private Creator="Anna" ProgramVersion="3.5.0"/>
  <Form1_Design mnuFile="&amp;File" mnuExit="E&amp;xit" Label1="5 %"/>
  <Form1_Module s1="File not found" s2="One&#13;&#10;two"/>
</Language>
)";
constexpr const char* kOld = R"(<Sprache>
  <Private Creator="Bert" ProgramVersion="3.4.9"/>
  <Form1_Design mnuFile="&amp;Datei" gone="Weg"/>
</Sprache>
)";
constexpr const char* kEnglishFile = "English.Captoria.exe.xml";
constexpr const char* kGermanFile = "German.Captoria.exe.xml";
constexpr const char* kAskSaveGerman = "Language file German.Captoria.exe.xml is not saved. Save it now?";

class CreateLangDialog : public WorkspaceFixture {
 protected:
  // With English and a German that is behind it, both in the folder of the program.
  void Open() {
    folder_.Put(std::string("program/") + kEnglishFile, kOriginal);
    folder_.Put(std::string("program/") + kGermanFile, kOld);
    dialog_.emplace(workspace_, "3.5.0", nullptr);
    QObject::connect(&*dialog_, &frmCreateLang::Saved, [this](const std::string& base) { told_.push_back(base); });
    dialog_->show();
  }

  template <typename Widget>
  Widget& Find(const char* name) {
    return PartOf<Widget>(*dialog_, name);
  }
  QTreeView& Tree1() { return Find<QTreeView>("Tree1"); }
  QTreeView& Tree2() { return Find<QTreeView>("Tree2"); }
  QPlainTextEdit& Text2() { return Find<QPlainTextEdit>("Text2"); }
  std::string LabelText(const char* name) { return FromQt(Find<QLabel>(name).text()); }

  void Choose(const char* box, const char* entry) {
    auto& combo = Find<QComboBox>(box);
    ASSERT_GE(combo.findText(entry), 0) << entry;
    combo.setCurrentIndex(combo.findText(entry));
  }

  static std::vector<std::string> Rows(const QTreeView& tree, const QModelIndex& parent = {}) {
    std::vector<std::string> rows;
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
      const QModelIndex index = tree.model()->index(row, 0, parent);
      rows.push_back(FromQt(index.data().toString()));
      for (const std::string& below : Rows(tree, index)) rows.push_back(below);
    }
    return rows;
  }

  static QModelIndex At(const QTreeView& tree, const char* text) {
    const auto found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
    return found.isEmpty() ? QModelIndex() : found.front();
  }

  static std::string Selected(const QTreeView& tree) { return FromQt(tree.currentIndex().data().toString()); }

  void Select(QTreeView& tree, const char* text) {
    const QModelIndex index = At(tree, text);
    ASSERT_TRUE(index.isValid()) << text;
    tree.setCurrentIndex(index);
  }

  static void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&widget, &press);
  }

  // Types over what is there, and Enter.
  void Translate(const char* text) {
    Text2().selectAll();
    Text2().insertPlainText(text);
    Press(Text2(), Qt::Key_Return);
  }

  void Save() { Find<QPushButton>("Command1").click(); }

  std::string Written(const char* name) { return folder_.Get(std::string("data/") + name); }

  std::vector<std::string> told_;
  std::optional<frmCreateLang> dialog_;
};

TEST_F(CreateLangDialog, OpensWithEnglish) {
  Open();
  EXPECT_EQ(dialog_->windowTitle(), "Create new language for program Captoria ver. 3.5.0");
  EXPECT_EQ(Find<QComboBox>("Combo1").currentText(), kEnglishFile);
  auto& files = Find<QComboBox>("Combo2");
  EXPECT_EQ(files.currentIndex(), -1);
  EXPECT_EQ(files.itemText(files.count() - 1), "<create new>");
  EXPECT_EQ(LabelText("lblVersion"), "3.5.0");
  EXPECT_THAT(Rows(Tree1()), ElementsAre("Language", "Private", "Creator = Anna", "ProgramVersion = 3.5.0",
                                         "Form1_Design", "mnuFile = &File", "mnuExit = E&xit", "Label1 = 5 %",
                                         "Form1_Module", "s1 = File not found", "s2 = One \xE2\x8F\x8E two"));
  Save();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Select or create a new language file first"));
  Find<QPushButton>("Command3").click();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("will be expanded all items there.\r\n3. Hit and hold")));
}

TEST_F(CreateLangDialog, CreatesALanguage) {
  Open();
  prompts_.Expect("Type the new language name\r\n(New file will be created at program's folder)",
                  std::optional<std::string>(" Deutsch "));
  Choose("Combo2", "<create new>");
  EXPECT_EQ(Written("Deutsch.Captoria.exe.xml"), kOriginal);
  for (const char* box : {"Combo1", "Combo2"}) EXPECT_GE(Find<QComboBox>(box).findText("Deutsch.Captoria.exe.xml"), 0);
  EXPECT_EQ(Find<QComboBox>("Combo1").currentText(), kEnglishFile);
  EXPECT_EQ(Find<QComboBox>("Combo2").currentText(), "Deutsch.Captoria.exe.xml");
  EXPECT_EQ(Rows(Tree2()), Rows(Tree1()));
  EXPECT_EQ(LabelText("lblProgress"), "1 of 5 translated");  // "5 %" says the same everywhere
}

TEST_F(CreateLangDialog, RefusesNames) {
  Open();
  const std::pair<std::optional<std::string>, std::vector<std::string>> refusals[] = {
      {std::nullopt, {}},
      {"German", {"This name exist, just select it from list"}},
      {"../x", {"This name is not possible for a language. Choose a name without \".\" and \"/\""}},
      {"x", {"Can not find original/source language. Select one from combo box"}}};
  for (const auto& [answer, messages] : refusals) {
    if (answer == "x") Find<QComboBox>("Combo1").setCurrentIndex(-1);
    prompts_.Expect("Type the new language name", answer);
    Choose("Combo2", "<create new>");
    EXPECT_EQ(prompts_.TakeMessages(), messages) << answer.value_or("cancelled");
    EXPECT_EQ(Find<QComboBox>("Combo2").currentIndex(), -1);
  }
}

TEST_F(CreateLangDialog, KeepsWhatIsLoadedWhenAnotherFileIsRefused) {
  Open();
  const std::string broken = folder_.Put("program/Broken.Captoria.exe.xml", "<a>\n<b>\n");
  dialog_.emplace(workspace_, "3.5.0", nullptr);
  Choose("Combo2", kGermanFile);
  Choose("Combo2", kEnglishFile);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Can not load the same file as the original one"));
  for (const char* box : {"Combo1", "Combo2"}) {
    Choose(box, "Broken.Captoria.exe.xml");
    EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("Error loading xml file " + broken)));
  }
  EXPECT_EQ(Find<QComboBox>("Combo1").currentText(), kEnglishFile);
  EXPECT_EQ(Find<QComboBox>("Combo2").currentText(), kGermanFile);
  EXPECT_EQ(Rows(Tree2()).front(), "Sprache");
}

TEST_F(CreateLangDialog, CreatesWhatIsMissingOnTheWayDown) {
  Open();
  Choose("Combo2", kGermanFile);
  Find<QCheckBox>("chkAutoCreate").setChecked(true);
  Tree1().setFocus();
  Tree1().setCurrentIndex(Tree1().model()->index(0, 0));
  for (int row = 1; row < 20; ++row) Press(*dialog_->focusWidget(), Qt::Key_Down);
  EXPECT_EQ(Selected(Tree1()), "s2 = One \xE2\x8F\x8E two");
  EXPECT_EQ(dialog_->focusWidget(), &Text2());
  EXPECT_THAT(Rows(Tree2()),
              ElementsAre("Sprache", "Private", "Creator = Bert", "ProgramVersion = 3.4.9", "Form1_Design",
                          "mnuFile = &Datei", "gone = Weg", "mnuExit = E&xit", "Label1 = 5 %", "Form1_Module",
                          "s1 = File not found", "s2 = One \xE2\x8F\x8E two"));
  EXPECT_EQ(Written(kGermanFile), "");
  for (int line = 0; line < 2; ++line) Press(Text2(), Qt::Key_Up);
  EXPECT_EQ(Selected(Tree1()), "s1 = File not found");
  Save();
  EXPECT_THAT(Written(kGermanFile), HasSubstr("s2=\"One&#13;&#10;two\""));
}

TEST_F(CreateLangDialog, AsksBeforeItCreates) {
  Open();
  Choose("Combo2", kGermanFile);
  prompts_.Expect("Section/Node Form1_Module not found. Create it?", false);
  Select(Tree1(), "s1 = File not found");
  EXPECT_FALSE(At(Tree2(), "Form1_Module").isValid());
  EXPECT_TRUE(Text2().isReadOnly());
  Press(Text2(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Text2().toPlainText(), "") << "there is no text to break";
  prompts_.Expect("Section/Node Form1_Module not found. Create it?", true);
  prompts_.Expect("Value/Node \"s2\" not found. Create it?", true);
  Select(Tree1(), "s2 = One \xE2\x8F\x8E two");
  EXPECT_EQ(Selected(Tree2()), "s2 = One \xE2\x8F\x8E two");
  EXPECT_FALSE(Text2().isReadOnly());
  prompts_.Expect("Value/Node \"mnuExit\" not found. Create it?", false);
  Select(Tree1(), "mnuExit = E&xit");
  EXPECT_FALSE(At(Tree2(), "mnuExit = E&xit").isValid());
  Select(Tree1(), "Language");
  EXPECT_EQ(Selected(Tree2()), "Sprache");
  EXPECT_EQ(Text2().toPlainText(), "");
}

TEST_F(CreateLangDialog, EnterTakesTheTextAndGoesOn) {
  Open();
  Choose("Combo2", kGermanFile);
  Find<QCheckBox>("chkAutoCreate").setChecked(true);
  Select(Tree1(), "mnuFile = &File");
  EXPECT_EQ(Find<QPlainTextEdit>("Text1").toPlainText(), "&File");
  Press(Text2(), Qt::Key_Enter, Qt::KeypadModifier);  // as it is
  EXPECT_EQ(LabelText("lblProgress"), "1 of 5 translated");
  EXPECT_EQ(Selected(Tree1()), "mnuExit = E&xit");
  Translate(
      "B\xC3\xA9"
      "enden\xC2\xA0!");
  EXPECT_EQ(LabelText("lblProgress"), "3 of 5 translated");
  EXPECT_TRUE(At(Tree2(),
                 "mnuExit = B\xC3\xA9"
                 "enden\xC2\xA0!")
                  .isValid());
  Press(Text2(), Qt::Key_Return);  // from the last of a section to the first of the next
  EXPECT_EQ(Selected(Tree1()), "s1 = File not found");
  Press(Text2(), Qt::Key_Return);
  Translate("Eins\nzwei");
  EXPECT_EQ(Selected(Tree1()), "s2 = One \xE2\x8F\x8E two");  // there is no next one
  Text2().selectAll();
  Text2().insertPlainText(QString(QChar(1)));
  Press(Text2(), Qt::Key_Return);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Error writing text in language file"));
  Text2().undo();
  Save();
  EXPECT_THAT(Written(kGermanFile), HasSubstr("mnuExit=\"B\xC3\xA9"
                                              "enden\xC2\xA0!\""));
  EXPECT_THAT(Written(kGermanFile), HasSubstr("s2=\"Eins&#13;&#10;zwei\""));
}

TEST_F(CreateLangDialog, SelectsTheOriginalOfATranslationAndChangesNothing) {
  Open();
  Choose("Combo2", kGermanFile);
  Select(Tree2(), "mnuFile = &Datei");
  EXPECT_EQ(Selected(Tree1()), "mnuFile = &File");
  Find<QPushButton>("Command2").click();
  EXPECT_EQ(LabelText("lblSaved"), "");
  Select(Tree2(), "gone = Weg");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Original item not found"));
  EXPECT_EQ(Text2().toPlainText(), "Weg");
  EXPECT_THAT(FromQt(Tree2().currentIndex().data(Qt::AccessibleTextRole).toString()), HasSubstr("not in the original"));
  dialog_->close();  // without a question
  EXPECT_TRUE(dialog_->isHidden());
}

TEST_F(CreateLangDialog, SavesCreatorAndVersion) {
  workspace_.language.LangFile = "German.Captoria.exe";
  folder_.Put("program/Other.Captoria.exe.xml", kOld);
  Open();
  Choose("Combo2", kGermanFile);
  const auto color = [this](const char* label) { return Find<QLabel>(label).palette().color(QPalette::WindowText); };
  EXPECT_EQ(LabelText("lblVersionEdit"), "3.4.9");
  EXPECT_NE(color("lblVersionEdit"), color("lblVersion"));
  EXPECT_EQ(Find<QLineEdit>("txtCreator").text(), "Bert");
  Find<QLineEdit>("txtCreator").setText("Carla & Co");
  Save();
  EXPECT_THAT(told_, ElementsAre("German.Captoria.exe"));
  EXPECT_EQ(LabelText("lblVersionEdit"), "3.5.0");
  EXPECT_EQ(color("lblVersionEdit"), color("lblVersion"));
  EXPECT_THAT(Written(kGermanFile), HasSubstr("Creator=\"Carla &amp; Co\" ProgramVersion=\"3.5.0\""));
  Choose("Combo2", "Other.Captoria.exe.xml");
  Choose("Combo2", kGermanFile);  // now the file in the data folder
  EXPECT_EQ(Find<QLineEdit>("txtCreator").text(), "Carla & Co");
  EXPECT_EQ(LabelText("lblVersionEdit"), "3.5.0");
}

TEST_F(CreateLangDialog, AsksToSave) {
  Open();
  for (const bool saves : {false, true}) {
    Choose("Combo2", kGermanFile);
    Select(Tree1(), "mnuFile = &File");
    prompts_.Expect("Value/Node \"mnuExit\"", false);
    Translate("&Akte");
    prompts_.Expect("Type the new language name", std::optional<std::string>(saves ? "B" : "A"));
    prompts_.Expect(kAskSaveGerman, saves);
    Choose("Combo2", "<create new>");
    EXPECT_EQ(Written(kGermanFile).find("&amp;Akte") != std::string::npos, saves);
  }
  EXPECT_THAT(told_, IsEmpty());
  Choose("Combo2", kGermanFile);
  Select(Tree1(), "mnuFile = &File");
  Text2().insertPlainText("&Dokument");  // no Enter
  prompts_.Expect(kAskSaveGerman, true);
  Press(*dialog_, Qt::Key_Escape);
  EXPECT_TRUE(dialog_->isHidden());
  EXPECT_THAT(Written(kGermanFile), HasSubstr("&amp;Dokument"));
}

TEST_F(CreateLangDialog, StaysWhenItCannotSave) {
  folder_.Put(std::string("data/") + kGermanFile + "/file", "");  // a folder in the way
  Open();
  Choose("Combo2", kGermanFile);
  Select(Tree1(), "mnuFile = &File");
  Text2().insertPlainText("&Akte");
  prompts_.Expect(kAskSaveGerman, true);
  dialog_->close();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr(folder_.File("data"))));
  EXPECT_TRUE(dialog_->isVisible());
  EXPECT_EQ(LabelText("lblSaved"), "Not saved");
  prompts_.Expect(kAskSaveGerman, false);
  Find<QPushButton>("cmdClose").click();
  EXPECT_TRUE(dialog_->isHidden());
}

TEST_F(CreateLangDialog, ShowsOnlyWhatIsNotTranslated) {
  Open();
  Choose("Combo2", kGermanFile);
  EXPECT_EQ(At(Tree1(), "mnuExit = E&xit").data(Qt::AccessibleTextRole), "mnuExit = E&xit, missing");
  auto& only = Find<QCheckBox>("chkOnlyUntranslated");
  only.click();
  EXPECT_THAT(Rows(Tree1()), ElementsAre("Language", "Form1_Design", "mnuExit = E&xit", "Label1 = 5 %", "Form1_Module",
                                         "s1 = File not found", "s2 = One \xE2\x8F\x8E two"));
  Find<QCheckBox>("chkAutoCreate").setChecked(true);
  Select(Tree1(), "mnuExit = E&xit");
  Translate("B&eenden");
  EXPECT_EQ(Selected(Tree1()), "Label1 = 5 %");
  Press(Text2(), Qt::Key_Return);
  EXPECT_EQ(Selected(Tree1()), "s1 = File not found");
  QApplication::processEvents();
  EXPECT_EQ(Selected(Tree1()), "s1 = File not found");
  EXPECT_THAT(Rows(Tree1()),
              ElementsAre("Language", "Form1_Module", "s1 = File not found", "s2 = One \xE2\x8F\x8E two"));
  Select(Tree2(), "mnuFile = &Datei");
  EXPECT_EQ(Selected(Tree1()), "mnuFile = &File");
  only.click();
  EXPECT_EQ(Rows(Tree1()).size(), 11U);
  EXPECT_EQ(Selected(Tree1()), "mnuFile = &File");
  prompts_.Expect(kAskSaveGerman, false);
  dialog_->close();
}

}  // namespace
}  // namespace captoria
