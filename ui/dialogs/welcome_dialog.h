// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// First steps, shown when the program starts for the first time.
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
