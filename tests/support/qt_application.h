// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The application object that every test of a window needs, without a screen.
#pragma once

#include <QApplication>

namespace captoria {

inline QApplication& TestApplication() {
  static QApplication* application = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "ui_tests";
    static char* argv[] = {name, nullptr};
    return new QApplication(argc, argv);  // lives as long as the process: fonts and styles outlive every static
  }();
  return *application;
}

}  // namespace captoria
