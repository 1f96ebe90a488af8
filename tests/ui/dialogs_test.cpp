// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QFontDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QThread>
#include <memory>

#include "tests/ui/next_dialog.h"
#include "tests/ui/workspace_fixture.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/ask_for_tool_dialog.h"
#include "ui/dialogs/label_ex.h"
#include "ui/dialogs/link_label.h"
#include "ui/main/window_prompts.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RememberingOpener final : public DocumentOpener {
 public:
  Result<void> Open(const std::string& address) override {
    opened.push_back(address);
    if (address.starts_with("bad:")) return Failure(ErrorKind::Unsupported, "no");
    return {};
  }
  std::vector<std::string> opened;
};

void Click(QWidget* widget) {
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, QPointF(2, 2), widget->mapToGlobal(QPointF(2, 2)), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(widget, &event);
  }
}

class Dialogs : public WorkspaceFixture {
 protected:
  RememberingOpener opener_;
};

TEST_F(Dialogs, ALinkLeadsToItsAddressByClickAndByKey) {
  LinkLabel link(opener_, LinkLabel::AddressIn::ToolTip, nullptr);
  std::string reason;
  QObject::connect(&link, &LinkLabel::NotOpened, [&](const QString& text) { reason = text.toStdString(); });
  link.setText("Homepage");
  link.show();
  Click(&link);
  EXPECT_THAT(opener_.opened, IsEmpty());
  EXPECT_EQ(link.focusPolicy(), Qt::NoFocus);

  link.setToolTip("https://example.org/?a&b");
  EXPECT_EQ(link.cursor().shape(), Qt::PointingHandCursor);
  EXPECT_TRUE(link.focusPolicy() & Qt::TabFocus);
  Click(&link);
  link.setToolTip("bad:address");
  for (const int key : {Qt::Key_Return, Qt::Key_X, Qt::Key_Space}) {
    QKeyEvent event(QEvent::KeyPress, key, {});
    QApplication::sendEvent(&link, &event);
  }
  EXPECT_THAT(opener_.opened, ElementsAre("https://example.org/?a&b", "bad:address", "bad:address"));
  EXPECT_EQ(reason, "no");
}

TEST_F(Dialogs, LabelExIsTwoLabelsOnePixelApart) {
  LabelEx label("lblTitle", nullptr);
  label.show();
  EXPECT_EQ(label.Caption(), "lblTitle");
  label.setProperty("Caption", "Font");
  label.setProperty("FontBold", true);
  label.setProperty("Enabled", false);
  label.SetBackColor(Qt::black);
  const auto both = label.findChildren<QLabel*>();
  ASSERT_EQ(both.size(), 2);
  EXPECT_EQ(both[1]->pos() - both[0]->pos(), QPoint(-1, -1));
  for (const QLabel* one : both) {
    EXPECT_EQ(one->text(), "Font");
    EXPECT_TRUE(one->font().bold());
    EXPECT_FALSE(one->isEnabled());
    EXPECT_EQ(one->palette().color(QPalette::Window), QColor(Qt::black));
  }
}

TEST_F(Dialogs, TheAboutBoxTellsVersionsAndLeadsToPages) {
  frmAbout about({.version = "3.5.0", .divxmux_page = "https://example.org/mux", .libraries = {"FFmpeg 5.1"}}, prompts_,
                 opener_, nullptr);
  about.show();
  EXPECT_EQ(about.windowTitle(), "About Captoria");
  std::vector<std::string> texts;
  for (const QLabel* label : about.findChildren<QLabel*>()) {
    if (label->isVisible() && !label->text().isEmpty()) texts.push_back(label->text().toStdString());
  }
  EXPECT_THAT(texts, ElementsAre("Captoria for Windows XP", "Version 3.5.0", "Captoria needs", "BmpToxSub", "DivXMux"));
  Click(about.findChild<QLabel*>("Label4"));
  Click(about.findChild<QLabel*>("Label5"));
  EXPECT_THAT(opener_.opened, ElementsAre("https://example.org/mux"));
  about.findChild<QPushButton*>("Command1")->click();
  EXPECT_THAT(prompts_.TakeMessages(),
              ElementsAre(testing::AllOf(testing::HasSubstr(qVersion()), testing::HasSubstr("FFmpeg 5.1"))));
  about.findChild<QPushButton*>("OKButton")->click();
  EXPECT_FALSE(about.isVisible());
}

TEST_F(Dialogs, AToolQuestionIsLeftWithAFileOrNotAtAll) {
  struct Asked {
    Tool tool;
    const char* name;
    const char* object;
  };
  for (const auto& [tool, name, object] : {Asked{Tool::DivXMux, "DivXMux.exe", "frmAskForDivXMux"},
                                           {Tool::BmpToXSub, "bmptoxsub.exe", "frmAskForbmptoxsub"}}) {
    SCOPED_TRACE(name);
    const std::string file = folder_.Put(name, "");
    AskForToolDialog dialog(workspace_, tool, opener_, nullptr);
    dialog.show();
    EXPECT_EQ(dialog.objectName(), object);
    EXPECT_EQ(PartOf<QLabel>(dialog, "Label1").text().toStdString(),
              std::string("File ") + name + " not found. Please, set the path for this file");
    for (const auto* link : dialog.findChildren<LinkLabel*>()) EXPECT_TRUE(link->isHidden());
    auto& path = PartOf<QLineEdit>(dialog, "Text1");
    const auto press = [&](const char* button) { PartOf<QPushButton>(dialog, button).click(); };
    press("OKButton");
    path.setText(QString::fromStdString(folder_.Path()));
    press("OKButton");
    EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("Please set a path", "Please set a valid path"));
    EXPECT_TRUE(dialog.isVisible());
    for (const auto& chosen : {std::optional<std::string>(file), std::optional<std::string>()}) {
      prompts_.Expect("File not found", chosen);
      press("Command1");
    }
    EXPECT_EQ(path.text().toStdString(), file) << "cancelling leaves the field";
    path.setText("  " + path.text() + " ");
    press("OKButton");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_THAT(folder_.Get("data/Captoria.ini"), testing::HasSubstr(file + "\r\n"));
    InNextDialog<AskForToolDialog>([](auto& asked) { PartOf<QPushButton>(asked, "CancelButton").click(); });
    EXPECT_FALSE(AskForToolDialog::Ask(workspace_, tool, nullptr));
  }
}

TEST_F(Dialogs, AddressesThatALanguageBringsAreShownAndOpened) {
  AskForToolDialog dialog(workspace_, Tool::DivXMux, opener_, nullptr);
  dialog.findChild<QLabel*>("Label5")->setText("bad:address");
  dialog.show();
  EXPECT_FALSE(dialog.findChild<QLabel*>("Label2")->isVisible());
  EXPECT_TRUE(dialog.findChild<QLabel*>("Label4")->isVisible());
  Click(dialog.findChild<QLabel*>("Label5"));
  EXPECT_THAT(opener_.opened, ElementsAre("bad:address"));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre("no"));
}

class WindowPromptsTest : public Dialogs {
 protected:
  WindowPrompts asked_{nullptr};
};

TEST_F(WindowPromptsTest, MessagesShowTagsAsTheyAreAndStayOnTheScreen) {
  InNextDialog<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.text(), "a '<font color=...>' tag");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    box.accept();
  });
  asked_.ShowMessage("Captoria", "a '<font color=...>' tag");
  std::string report;
  for (int i = 0; i < 200; ++i) report += "Error opening file\r\n";
  InNextDialog<QMessageBox>([](QMessageBox& box) {
    EXPECT_LE(box.height(), 600);
    EXPECT_EQ(box.detailedText().count('\n'), 199);
    box.accept();
  });
  asked_.ShowMessage("Captoria", report);
}

TEST_F(WindowPromptsTest, QuestionsAreAnsweredAlsoForAnotherThread) {
  bool yes = false, escaped = true;
  std::unique_ptr<QThread> worker(QThread::create([&] { yes = asked_.AskYesNo("Captoria", "Go on?"); }));
  InNextDialog<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
  QEventLoop loop;
  QObject::connect(worker.get(), &QThread::finished, &loop, &QEventLoop::quit);
  worker->start();
  loop.exec();
  EXPECT_TRUE(yes);
  InNextDialog<QMessageBox>([](QMessageBox& box) { box.reject(); });
  escaped = asked_.AskYesNo("Captoria", "Go on?");
  EXPECT_FALSE(escaped);
}

TEST_F(WindowPromptsTest, FilesComeBackAsTheyAreNamed) {
  const std::string a = folder_.Put("a \xCE\xB1.avi", ""), b = folder_.Put("b.avi", "");
  InNextDialog<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.nameFilters(), QStringList({"*.avi *.divx", "All (*)"}));
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder_.Path());
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText("\"a \u03B1.avi\" \"b.avi\"");
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
  });
  EXPECT_THAT(asked_.AskFilesToOpen("Videos", {{"*.avi;*.divx", "*.avi;*.divx"}, {"All", "*"}}, b),
              testing::UnorderedElementsAre(a, b));
  InNextDialog<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_THAT(asked_.AskFilesToOpen("Videos", {}, ""), IsEmpty());
  InNextDialog<QFileDialog>([](QFileDialog& dialog) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText("new");
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
  });
  EXPECT_EQ(asked_.AskFileToSave("Film", {{"DivX", "*.divx;*.avi"}}, folder_.Path()), folder_.File("new.divx"));
}

TEST_F(WindowPromptsTest, AnUntouchedColourOrFontStaysWhatItWas) {
  InNextDialog<QColorDialog>([](QColorDialog& dialog) {
    EXPECT_EQ(dialog.currentColor(), QColor(0x10, 0x20, 0x30));
    dialog.accept();
  });
  EXPECT_EQ(asked_.AskColor("Color", 0x302010u), 0x302010u);
  InNextDialog<QFontDialog>([](QFontDialog& dialog) { dialog.accept(); });
  const auto font =
      asked_.AskFont("Font", {.name = "DejaVu Sans", .size = 20.25, .bold = true, .italic = false, .charset = 161});
  ASSERT_TRUE(font);
  EXPECT_EQ(font->name, "DejaVu Sans");
  EXPECT_EQ(font->size, 20.25);
  EXPECT_TRUE(font->bold);
  EXPECT_FALSE(font->italic);
  EXPECT_EQ(font->charset, 161);
}

}  // namespace
}  // namespace captoria
