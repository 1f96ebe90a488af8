// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/info.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QMouseEvent>

#include "tests/support/qt_application.h"
#include "tests/support/scripted_prompts.h"

namespace captoria {
namespace {

using testing::ElementsAre;

class InfoTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

  void SetUp() override {
    info_.SetTitle1("Type");
    info_.SetTitle2("Stream");
    info_.AddLine({"Video", "XviD 640x480\r\nmain"});
    info_.AddLine({"Audio", "mp3"}, Qt::AlignRight);
    info_.AddLine({"Unknown"});
    for (const char* type : {"Video", "Audio", "Subtitle"}) info_.ComboAddItem(type);
    info_.SetColumnForCombo(1);
    info_.resize(500, 300);
    info_.show();
  }

  QTableWidget& Table() { return *info_.findChild<QTableWidget*>(); }
  QComboBox* List() { return Table().findChild<QComboBox*>(); }

  void Click(int line, int column) {
    const QPointF at = Table().visualItemRect(Table().item(line - 1, column - 1)).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, Table().viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
      QApplication::sendEvent(Table().viewport(), &event);
    }
  }

  void Press(QWidget* widget, int key) {
    QKeyEvent event(QEvent::KeyPress, key, {});
    QApplication::sendEvent(widget, &event);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  ScriptedPrompts prompts_;
  Info info_{prompts_, nullptr};
};

TEST_F(InfoTest, BadIndexesAreToldAndChangeNothing) {
  struct Row {
    int line, column;
    const char* message;
  };
  for (const auto& [line, column, message] :
       {Row{0, 1, "Index out of bounds"}, Row{4, 1, "Index out of bounds"}, Row{0, 3, "Index out of bounds"},
        Row{1, 0, "Error in column"}, Row{3, 3, "Error in column"}}) {
    SCOPED_TRACE(testing::Message() << line << ", " << column);
    info_.SetCaption(line, column, "x");
    EXPECT_EQ(info_.Caption(line, column), "");
    EXPECT_EQ(info_.Alingment(line, column), Qt::Alignment());
    info_.SetFont(line, column, {});
    EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(message, message, message, message));
  }
  info_.RemoveLine(4);
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Index out of bounds"));
  info_.RemoveLine(1);
  EXPECT_EQ(info_.LineCount(), 2);
  EXPECT_EQ(info_.Caption(1, 2), "mp3");
  EXPECT_EQ(info_.Caption(2, 2), "") << "a text that was not given";
}

TEST_F(InfoTest, LinesAndTheDividerKeepTheirSizes) {
  EXPECT_GT(Table().rowHeight(0), Table().rowHeight(1)) << "a text of several lines";
  info_.SetLineHeight(60);
  info_.AddLine({"Audio", "ac3"});
  for (const int row : {1, 3}) EXPECT_EQ(Table().rowHeight(row), 60) << row;
  info_.SetMiddleWidth(123);
  EXPECT_EQ(Table().horizontalHeader()->sectionSize(0), 123);
}

TEST_F(InfoTest, AClickOpensTheListAndAChoiceGoesIntoTheCell) {
  std::vector<std::pair<int, int>> chosen;
  QObject::connect(&info_, &Info::CaptionChosen, [&](int line, int column) { chosen.emplace_back(line, column); });
  Click(2, 2);
  EXPECT_EQ(List(), nullptr) << "the other column has no list";
  Click(2, 1);
  ASSERT_NE(List(), nullptr);
  EXPECT_EQ(List()->currentText(), "Audio");
  EXPECT_EQ(List()->accessibleName(), "Type");
  List()->setCurrentIndex(2);
  emit List()->activated(2);
  EXPECT_EQ(info_.Caption(2, 1), "Subtitle");
  EXPECT_THAT(chosen, ElementsAre(std::pair(2, 1)));
}

TEST_F(InfoTest, ALeftListChangesNothing) {
  info_.SetComboText("Audio");
  info_.SetComboText("no such item");
  Table().setCurrentCell(2, 0);
  Press(&Table(), Qt::Key_F2);
  ASSERT_NE(List(), nullptr);
  EXPECT_EQ(List()->currentText(), "Audio") << "the cell's own text is none of the items";
  List()->hidePopup();
  Press(List(), Qt::Key_Escape);
  EXPECT_EQ(info_.Caption(3, 1), "Unknown");
  EXPECT_EQ(List(), nullptr);
  info_.ComboClear();
  Click(3, 1);
  EXPECT_EQ(List(), nullptr) << "an empty list is not opened";
}

TEST_F(InfoTest, SelectedLinesAreCopiedInTheirOrder) {
  Table().selectRow(1);
  Table().selectionModel()->select(Table().model()->index(0, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
  for (QAction* action : Table().actions()) {
    if (action->shortcut() == QKeySequence(QKeySequence::Copy)) action->trigger();
  }
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "Video\tXviD 640x480\tmain\nAudio\tmp3\n");
}

}  // namespace
}  // namespace captoria
