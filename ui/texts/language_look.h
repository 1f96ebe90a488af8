// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a language changes beside the captions of windows: the direction they run in, and the texts of the toolkit's own
// dialogs, such as those that ask for a file. A language file tells both in its section "Private": Direction="rtl", and
// Locale="de", of which the toolkit may or may not have texts.
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
