// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a person does in the next modal dialog that opens.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

namespace captoria {

// Waits for a dialog to open and calls `act` with it. A dialog of another class fails the test and is closed.
template <typename Dialog, typename Act>
void InNextDialog(Act act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    QWidget* shown = QApplication::activeModalWidget();
    if (shown == nullptr) return;
    timer->stop();
    timer->deleteLater();
    auto* dialog = dynamic_cast<Dialog*>(shown);
    EXPECT_NE(dialog, nullptr) << shown->objectName().toStdString();
    dialog == nullptr ? static_cast<void>(shown->close()) : act(*dialog);
  });
  timer->start(1);
}

}  // namespace captoria
