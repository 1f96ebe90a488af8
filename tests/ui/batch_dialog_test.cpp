// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/batch_dialog.h"

#include <gmock/gmock.h>

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>

#include "tests/support/qt_application.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Paths = std::vector<std::string>;

class BatchDialog : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

  void SetUp() override { dialog_.show(); }

  QPushButton* Button(const char* name) { return dialog_.findChild<QPushButton*>(name); }

  QListWidget& List() { return *dialog_.findChild<QListWidget*>("List1"); }

  Paths Shown() {
    Paths lines;
    for (int i = 0; i < List().count(); ++i) lines.push_back(List().item(i)->text().toStdString());
    return lines;
  }

  void Add(const Paths& paths) {
    prompts_.Expect("Batch convert", paths);
    Button("Command1")->click();
  }

  bool Drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(&dialog_, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&dialog_, &drop);
    return true;
  }

  ScriptedPrompts prompts_;
  TestFolder folder_;
  frmBatch dialog_{prompts_, "/m/now.avi", nullptr};
};

TEST_F(BatchDialog, AddsFilesAndAFolder) {
  const std::string a = folder_.Put("a.avi", "");
  Add({"/m/x.divx", "/M/X.DIVX"});
  Add({});
  for (const std::optional<std::string>& chosen : {std::optional(folder_.Path()), std::optional<std::string>()}) {
    prompts_.Expect("Batch convert", chosen);
    Button("Command4")->click();
  }
  EXPECT_THAT(dialog_.Files(), ElementsAre("/m/x.divx", a));
  EXPECT_EQ(Shown(), dialog_.Files());
}

TEST_F(BatchDialog, DeletesWhatIsSelectedByButtonAndByKey) {
  Add({"/1.avi", "/2.avi", "/3.avi", "/4.avi", "/5.avi"});
  EXPECT_FALSE(Button("Command2")->isEnabled());
  for (const int row : {0, 3}) List().item(row)->setSelected(true);
  Button("Command2")->click();
  EXPECT_THAT(dialog_.Files(), ElementsAre("/2.avi", "/3.avi", "/5.avi"));
  List().clearSelection();
  List().item(1)->setSelected(true);
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, {});
  QApplication::sendEvent(&List(), &key);
  EXPECT_THAT(dialog_.Files(), ElementsAre("/2.avi", "/5.avi"));
  EXPECT_EQ(Shown(), dialog_.Files());
  Button("Command3")->click();
  EXPECT_THAT(dialog_.Files(), IsEmpty());
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(BatchDialog, TakesWhatIsDropped) {
  EXPECT_FALSE(Drop({QUrl("https://example.org/a.avi")}));
  EXPECT_TRUE(Drop({QUrl::fromLocalFile("/m/b 1.divx"), QUrl::fromLocalFile("/m/b.srt")}));
  EXPECT_THAT(dialog_.Files(), ElementsAre("/m/b 1.divx"));
}

TEST_F(BatchDialog, IsLeftByOkWithAListOnly) {
  Button("OKButton")->click();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Plaese add some files"));
  EXPECT_TRUE(dialog_.isVisible());
  Add({"/1.avi"});
  Button("OKButton")->click();
  EXPECT_TRUE(dialog_.Confirmed());
  EXPECT_TRUE(dialog_.isHidden());
  EXPECT_THAT(dialog_.Files(), ElementsAre("/1.avi"));
  dialog_.show();
  Button("CancelButton")->click();
  EXPECT_FALSE(dialog_.Confirmed());
}

}  // namespace
}  // namespace captoria
