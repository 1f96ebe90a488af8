// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The two buttons a dialog ends with.
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace captoria {

struct DialogButton {
  const char* name;  // its object name
  QString text;
};

// In a row at the trailing edge: the one that Enter presses and that accepts the dialog, and the one that rejects it.
inline QHBoxLayout* DialogButtons(QDialog& dialog, const DialogButton& accept, const DialogButton& reject) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  const auto add = [&](const DialogButton& made, auto slot) {
    auto* button = new QPushButton(made.text, &dialog);
    button->setObjectName(made.name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &dialog, slot);
    row->addWidget(button);
    return button;
  };
  add(accept, &QDialog::accept)->setDefault(true);
  add(reject, &QDialog::reject);
  return row;
}

}  // namespace captoria
