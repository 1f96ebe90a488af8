// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_batch_page.h"

#include "tests/ui/next_dialog.h"
#include "tests/ui/workspace_fixture.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Path = std::optional<std::string>;

constexpr const char* kTidy = "# old\r\n# Dashes\r\n\r\nSelect 2, \"-\"A, \"\"\r\nx\r\n";

class BatchPage : public WorkspaceFixture {
 protected:
  void Show(const std::string& batch_to_run) {
    Settings settings = workspace_.preferences.settings;
    settings.BatchToRun = batch_to_run;
    page_.Load(settings);
    page_.show();
  }

  template <typename Widget>
  Widget& Part(const char* name, int index = -1) {
    return PartOf<Widget>(page_, name, index);
  }

  void Press(const char* name, int index = -1) { Part<QAbstractButton>(name, index).click(); }
  bool CanSave() { return Part<QPushButton>("cmdSave").isEnabled(); }

  std::vector<std::string> Commands(int index) {
    const auto& list = Part<QListWidget>("lstCommands", index);
    std::vector<std::string> lines(static_cast<std::size_t>(list.count()));
    for (int i = 0; i < list.count(); ++i) lines.at(static_cast<std::size_t>(i)) = FromQt(list.item(i)->text());
    return lines;
  }

  // Adds a command by the dialog behind `action`, in which `confirm` does what a person does.
  template <typename Dialog, typename Confirm>
  void Add(int index, const char* action, Confirm confirm) {
    Press("cmdAddComm", index);
    page_.findChild<QMenu*>("mnuHidden")->close();
    InNextDialog<Dialog>(confirm);
    page_.findChild<QAction*>(action)->trigger();
  }

  void AddSelect(int index) {
    Add<frmSelectSubs>(index, "mnuSelect", [](frmSelectSubs& dialog) {
      dialog.findChild<QComboBox*>("cmbNumOfLines")->setCurrentIndex(2);
      dialog.accept();
    });
  }

  std::string Stored() {
    Settings settings;
    page_.Store(settings);
    return settings.BatchToRun;
  }

  OptionsBatchPage page_{workspace_, {.cue = nullptr, .position = 0, .maximum = 300}, nullptr};
};

TEST_F(BatchPage, AFileIsLoadedEditedAndSaved) {
  const std::string tidy = folder_.Put("tidy.cbx", kTidy);
  Show(tidy);
  EXPECT_EQ(Part<QLineEdit>("txtComment", 1).text(), "Dashes");
  EXPECT_THAT(Commands(1), ElementsAre("Select 2, \"-\"A, \"\"", "x"));
  EXPECT_FALSE(CanSave());
  Press("cmdDel", 1);
  EXPECT_FALSE(CanSave()) << "no line is selected";
  Part<QListWidget>("lstCommands", 1).setCurrentRow(1);
  Press("cmdDel", 1);
  EXPECT_TRUE(CanSave());
  Add<Form3>(1, "mnuPosAl", [](Form3& dialog) {
    dialog.findChild<QSlider*>("Slider1")->setValue(35);
    dialog.accept();
  });
  Add<Form3>(1, "mnuPosAl", [](Form3& dialog) { dialog.reject(); });
  Press("cmdSave");
  EXPECT_FALSE(CanSave());
  EXPECT_EQ(folder_.Get("tidy.cbx"), "# Dashes\r\nSelect 2, \"-\"A, \"\"\r\nPosAlignment 35, \r\n");
  EXPECT_FALSE(page_.HasMadeFiles());
  EXPECT_EQ(Stored(), tidy);
}

TEST_F(BatchPage, WithoutAFileOnlyANewOneCanBeMade) {
  Show(folder_.File("missing.cbx"));
  for (const char* name : {"cmdAddComm", "cmdDel", "txtComment", "lblCommands"}) {
    EXPECT_FALSE(Part<QWidget>(name, 1).isEnabled()) << name;
    EXPECT_TRUE(Part<QWidget>(name, 0).isEnabled()) << name;
  }
  EXPECT_EQ(Stored(), "");
  Part<QLineEdit>("txtComment", 0).setText("new");
  EXPECT_TRUE(CanSave());
  Press("cmdSave");
  Press("cmdCreate");
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Nothing to save", "Nothing to save"));
}

TEST_F(BatchPage, AnotherFileTakesThePlaceOfTheFirst) {
  const std::string tidy = folder_.Put("tidy.cbx", kTidy), other = folder_.Put("other.cbx", "Select 1, \"\", \"\"\r\n");
  Show(tidy);
  prompts_.Expect("batch file", Path{});
  Press("cmdBatchToRun");
  EXPECT_EQ(Stored(), tidy) << "cancelled";
  Part<QLineEdit>("txtComment", 1).setText("lost");
  prompts_.Expect("batch file", Path{other});
  Press("cmdBatchToRun");
  EXPECT_THAT(Commands(1), ElementsAre("Select 1, \"\", \"\""));
  EXPECT_EQ(Part<QLineEdit>("txtComment", 1).text(), "");
  EXPECT_FALSE(CanSave());

  // A name that is typed shows its file, so that "Save" writes over nothing unseen.
  Part<QLineEdit>("txtBatchToRun").setText(PathToQt(tidy));
  emit Part<QLineEdit>("txtBatchToRun").editingFinished();
  EXPECT_EQ(Commands(1).size(), 2U);

  Press("cmdClear");
  EXPECT_THAT(Commands(1), IsEmpty());
  EXPECT_FALSE(Part<QPushButton>("cmdAddComm", 1).isEnabled());
  EXPECT_FALSE(CanSave());
  EXPECT_EQ(Stored(), "");
  EXPECT_EQ(folder_.Get("tidy.cbx"), kTidy);
}

TEST_F(BatchPage, ANewFileGetsItsExtension) {
  Show("");
  AddSelect(0);
  Part<QLineEdit>("txtComment", 0).setText("Two lines");
  prompts_.Expect("Create", Path{});
  Press("cmdCreate");
  EXPECT_FALSE(page_.HasMadeFiles());
  for (const auto& [chosen, written] : std::vector<std::pair<const char*, const char*>>{
           {"a.cbx", "a.cbx"}, {"b", "b.cbx"}, {"C.CBX", "C.CBX.cbx"}, {"dcbx", "dcbx"}}) {
    prompts_.Expect("Create", Path{folder_.File(chosen)});
    Press("cmdCreate");
    EXPECT_EQ(folder_.Get(written), "# Two lines\r\nSelect 2, \"\", \"\"\r\n") << chosen;
  }
  EXPECT_TRUE(page_.HasMadeFiles());
  EXPECT_THAT(Commands(1), IsEmpty());
  prompts_.Expect("Create", Path{folder_.File("b")});
  prompts_.Expect("b.cbx already exists", false);  // the file dialog asked only about "b"
  Part<QLineEdit>("txtComment", 0).setText("anew");
  Press("cmdCreate");
  EXPECT_EQ(folder_.Get("b.cbx").find("anew"), std::string::npos);
}

TEST_F(BatchPage, TheFileToRunIsSeenWhenItIsCreatedAnew) {
  const std::string tidy = folder_.Put("tidy.cbx", kTidy);
  Show(tidy);
  AddSelect(0);
  Part<QLineEdit>("txtComment", 0).setText("anew");
  prompts_.Expect("Create", Path{tidy});
  Press("cmdCreate");
  EXPECT_THAT(Commands(1), ElementsAre("Select 2, \"\", \"\""));
  EXPECT_EQ(Part<QLineEdit>("txtComment", 1).text(), "anew");
}

TEST_F(BatchPage, WhatCannotBeReadOrWrittenIsTold) {
  const std::string large = folder_.Put("large.cbx", std::string(kLargestCommandFile + 1, 'x'));
  Show(large);
  EXPECT_EQ(prompts_.TakeMessages().size(), 1U);
  EXPECT_FALSE(Part<QPushButton>("cmdAddComm", 1).isEnabled());
  EXPECT_EQ(Stored(), large);
  AddSelect(0);
  prompts_.Expect("Create", Path{folder_.File("no/such/folder.cbx")});
  Press("cmdCreate");
  EXPECT_EQ(prompts_.TakeMessages().size(), 1U);
  EXPECT_FALSE(page_.HasMadeFiles());
}

}  // namespace
}  // namespace captoria
