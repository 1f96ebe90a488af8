// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The row of OK and Cancel buttons at the end of a dialog.
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace captoria {

struct DialogButton {
  const char* name;  // object name
  QString text;
};

// A row of two buttons at the trailing edge. `accept` is the default button.
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
