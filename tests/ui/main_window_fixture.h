// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The main window with a film of two seconds, and what a person does with it.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTabBar>
#include <QUrl>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/qt_application.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"
#include "ui/main/main_window.h"

namespace captoria {

inline constexpr const char* kCues =
    "1\n00:00:00,200 --> 00:00:00,700\nHello\n\n2\n00:00:01,000 --> 00:00:01,900\n"
    "This line is far too long to stand within the safe viewing area of any television that was ever built\n";

// Their bitmaps take long enough for a person to do something meanwhile.
inline std::string ManyCues() {
  std::string cues;
  for (int i = 0; i < 3000; ++i) cues += std::to_string(i) + "\n00:00:01,000 --> 00:00:02,000\nLine\n\n";
  return cues;
}

class MainWindow : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

  MainWindow() {
    const std::string make = "ffmpeg -nostdin -v error -f lavfi -i testsrc2=s=320x240:r=25:d=2 -f lavfi -i sine=d=2 " +
                             ("-c:v mpeg4 -c:a libmp3lame '" + film_ + "'");
    EXPECT_EQ(std::system(make.c_str()), 0);
    folder_.Put("film.srt", kCues);
    Start();
  }

  void Start(Attendance attendance = Attendance::Person) {
    window_.reset();
    workspace_.emplace(ProgramFolders{.executable = CAPTORIA_BIN, .data = folder_.File("data")}, prompts_, view_,
                       attendance);
    workspace_->preferences.settings.ShowWelcome = false;
    workspace_->preferences.settings.ShowDos = false;
    window_ = std::make_unique<Form1>(*workspace_, view_);
    window_->show();
  }

  template <typename T>
  T* Part(const char* name) {
    T* part = window_->findChild<T*>(name);
    EXPECT_NE(part, nullptr) << name;
    return part;
  }

  QString Status(const char* name) { return Part<QLabel>(name)->text(); }
  void Choose(const char* name) { Part<QAction>(name)->trigger(); }

  QStringList Tabs() {
    const auto* tabs = Part<QTabBar>("TabStrip1");
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
    return texts;
  }

  void Drop(const std::string& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &event);
  }

  // Returns the messages shown.
  std::vector<std::string> OpenFilm() {
    prompts_.Expect("Captoria", std::optional<std::string>{film_});
    Choose("mnuOpenAvi");
    return prompts_.TakeMessages();
  }

  TestFolder folder_;
  std::string film_ = folder_.File("film.avi");
  ScriptedPrompts prompts_;
  WindowView view_;
  std::optional<Workspace> workspace_;
  std::unique_ptr<Form1> window_;
};

}  // namespace captoria
