// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What to do first, for who starts the program for the first time.
#pragma once

#include <QDialog>

#include "localisation/language_document.h"

namespace captoria {

// Labels "Label1" to "Label10" in reading order.
class frmWelcome final : public QDialog {
 public:
  frmWelcome(const LanguageDocument& language, QWidget* parent);
};

}  // namespace captoria
