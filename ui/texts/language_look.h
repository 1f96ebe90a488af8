// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a language changes besides captions: the layout direction, and the texts of Qt's own dialogs. A language file
// sets both in its section "Private": Direction="rtl" and Locale="de". Qt may lack a translation for the locale.
#pragma once

#include <QTranslator>

#include "localisation/language_document.h"

namespace captoria {

class LanguageLook {
 public:
  void Apply(const LanguageDocument& language);

 private:
  QTranslator toolkit_;
};

}  // namespace captoria
