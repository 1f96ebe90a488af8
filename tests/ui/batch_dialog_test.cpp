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

  QPushButton* Button(const QString& caption) {
    for (auto* button : dialog_.findChildren<QPushButton*>()) {
      if (button->text().remove('&') == caption) return button;
    }
    ADD_FAILURE() << "no button " << caption.toStdString();
    return nullptr;
  }

  QListWidget& List() { return *dialog_.findChild<QListWidget*>("List1"); }

  Paths Shown() {
    Paths lines;
    for (int i = 0; i < List().count(); ++i) lines.push_back(List().item(i)->text().toStdString());
    return lines;
  }

  void Add(const Paths& paths) {
    prompts_.Expect("Batch convert", paths);
    Button("Add")->click();
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

TEST_F(BatchDialog, AddsWhatIsNewAndAFolderWholly) {
  const std::string a = folder_.Put("a.avi", ""), b = folder_.Put("\xC3\xA9.avi", "");
  Add({a, "/m/x.divx"});
  Add({"/M/X.DIVX"});
  Add({});
  for (const std::optional<std::string>& chosen : {std::optional(folder_.Path()), std::optional<std::string>()}) {
    prompts_.Expect("Batch convert", chosen);
    Button("All .avi files in folder")->click();
  }
  EXPECT_THAT(dialog_.Files(), ElementsAre(a, "/m/x.divx", a, b));
  EXPECT_EQ(Shown(), dialog_.Files());
}

TEST_F(BatchDialog, DeletesWhatIsSelectedByButtonAndByKey) {
  Add({"/1.avi", "/2.avi", "/3.avi", "/4.avi", "/5.avi"});
  EXPECT_FALSE(Button("Delete")->isEnabled());
  for (const int row : {0, 3}) List().item(row)->setSelected(true);
  Button("Delete")->click();
  EXPECT_THAT(dialog_.Files(), ElementsAre("/2.avi", "/3.avi", "/5.avi"));
  List().clearSelection();
  List().item(1)->setSelected(true);
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, {});
  QApplication::sendEvent(&List(), &key);
  EXPECT_THAT(dialog_.Files(), ElementsAre("/2.avi", "/5.avi"));
  EXPECT_EQ(Shown(), dialog_.Files());
  Button("Clear")->click();
  EXPECT_THAT(dialog_.Files(), IsEmpty());
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(BatchDialog, TakesWhatIsDropped) {
  const std::string a = folder_.Put("a.avi", "");
  EXPECT_FALSE(Drop({QUrl("https://example.org/a.avi")}));
  EXPECT_TRUE(Drop({QUrl::fromLocalFile("/m/b 1.divx"), QUrl::fromLocalFile(QString::fromStdString(folder_.Path())),
                    QUrl::fromLocalFile("/m/b.srt")}));
  EXPECT_THAT(dialog_.Files(), ElementsAre("/m/b 1.divx", a));
}

TEST_F(BatchDialog, IsLeftByOkWithAListOnly) {
  Button("OK")->click();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Plaese add some files"));
  EXPECT_TRUE(dialog_.isVisible());
  Add({"/1.avi"});
  Button("OK")->click();
  EXPECT_TRUE(dialog_.Confirmed());
  EXPECT_TRUE(dialog_.isHidden());
  EXPECT_THAT(dialog_.Files(), ElementsAre("/1.avi"));
  dialog_.show();
  Button("Cancel")->click();
  EXPECT_FALSE(dialog_.Confirmed());
}

}  // namespace
}  // namespace captoria
