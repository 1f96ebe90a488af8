// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Which texts of a window a language file reaches, and by which keys.
#include "ui/texts/captions.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QToolBar>

#include "tests/support/qt_application.h"

namespace captoria {
namespace {

class Captions : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

  Captions() {
    window_.setObjectName("Form9");
    window_.setWindowTitle("Nine");
    label_->setObjectName("Label1");
    label_->setToolTip("of one");
    (new QLabel("nameless", &window_))->setToolTip("too");
    auto* data = new QLabel("film.avi", &window_);
    data->setObjectName("lblFile");
    data->setProperty(kShowsData, true);
    auto* field = new QWidget(&window_);
    field->setObjectName("Text1");
    field->setAccessibleName("Path");
    (new QGroupBox("Group", &window_))->setObjectName("Frame1");
    for (int i = 0; i < 2; ++i) {
      auto* button = new QPushButton(QString("Button %1").arg(i), &window_);
      button->setObjectName("cmdDel");
      button->setProperty("Index", i);
    }
    tabs_->setObjectName("Tabs");
    tabs_->addTab("One");
    tabs_->setTabToolTip(tabs_->addTab("Two"), "the second");
    auto* menu = new QMenu("Menu", &window_);
    menu->setObjectName("mnuFile");
    open_->setObjectName("mnuOpen");
    menu->addAction(open_);
    menu->addSeparator()->setObjectName("mnuSep");
    bar_->setObjectName("Toolbar2");
    bar_->addSeparator();
    bar_->addAction(open_);
    open_->setToolTip("Open it");
    auto* open_dialog = new QDialog(&window_);  // has texts of its own
    (new QLabel("Another window's", open_dialog))->setObjectName("Label1");
  }

  static LanguageDocument Language(const std::string& attributes) {
    return *LanguageDocument::Parse("<Language><Form9_Design " + attributes + "/></Language>");
  }

  std::map<std::string, std::string> Texts() {
    std::map<std::string, std::string> texts;
    for (const Caption& caption : CaptionsOf(window_)) texts[caption.key.toStdString()] = caption.text.toStdString();
    return texts;
  }

  QWidget window_;
  QLabel* label_ = new QLabel("One", &window_);
  QTabBar* tabs_ = new QTabBar(&window_);
  QAction* open_ = new QAction("Open...", &window_);
  QToolBar* bar_ = new QToolBar(&window_);
};

const std::map<std::string, std::string> kBuiltIn{{"Form9", "Nine"},
                                                  {"Label1", "One"},
                                                  {"Label1_ToolTipText", "of one"},
                                                  {"Text1_AccessibleName", "Path"},
                                                  {"Frame1", "Group"},
                                                  {"cmdDel_0", "Button 0"},
                                                  {"cmdDel_1", "Button 1"},
                                                  {"Tabs_1", "One"},
                                                  {"Tabs_2", "Two"},
                                                  {"Tabs_2_ToolTipText", "the second"},
                                                  {"mnuFile", "Menu"},
                                                  {"mnuOpen", "Open..."},
                                                  {"Toolbar2_1_ToolTipText", "Open it"}};

TEST_F(Captions, AreFoundByTheNamesOfWhatShowsThem) { EXPECT_EQ(Texts(), kBuiltIn); }

TEST_F(Captions, OfOneLanguageGiveWayToThoseOfTheNext) {
  WindowCaptions captions(window_);
  captions.Apply(
      Language(R"(Form9="Neun" mnuOpen="&amp;Öffnen..." cmdDel_1="Löschen" Label1_ToolTipText="" Tabs_2="Zwei"
                             Toolbar2_1_ToolTipText="Öffnen" Tabs_1_ToolTipText="der erste" lblFile="nie" Frame1="")"));
  auto expected = kBuiltIn;
  expected["Form9"] = "Neun";
  expected["mnuOpen"] = "&Öffnen...";
  expected["cmdDel_1"] = "Löschen";
  expected["Tabs_2"] = "Zwei";
  expected["Toolbar2_1_ToolTipText"] = "Öffnen";
  expected["Tabs_1_ToolTipText"] = "der erste";
  expected.erase("Label1_ToolTipText");
  expected.erase("Frame1");
  EXPECT_EQ(Texts(), expected);
  EXPECT_EQ(bar_->widgetForAction(open_)->accessibleName(), "Öffnen");
  EXPECT_EQ(window_.findChild<QLabel*>("lblFile")->text(), "film.avi");
  EXPECT_EQ(window_.findChild<QDialog*>()->findChild<QLabel*>()->text(), "Another window's");

  captions.Apply(Language(R"(Label1="Un")"));
  expected = kBuiltIn;
  expected["Label1"] = "Un";
  EXPECT_EQ(Texts(), expected);
  captions.Apply({});
  EXPECT_EQ(Texts(), kBuiltIn);
}

}  // namespace
}  // namespace captoria
