// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A text that a window needs now and then, kept in a label nobody sees, so that language files reach it as they reach
// every other caption.
#pragma once

#include <QLabel>

namespace captoria {

inline QLabel* HiddenText(const char* name, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->hide();
  return label;
}

}  // namespace captoria
