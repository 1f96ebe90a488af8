// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/texts/language_look.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>

#include "ui/texts/qt_text.h"

namespace captoria {

void LanguageLook::Apply(const LanguageDocument& language) {
  const auto told = [&](const char* item) { return ToQt(language.Text(kPrivateSection, item).value_or("")); };
  const bool mirrored = told("Direction").compare("rtl", Qt::CaseInsensitive) == 0;
  const Qt::LayoutDirection direction = mirrored ? Qt::RightToLeft : Qt::LeftToRight;
  const QString locale = told("Locale");
  QCoreApplication::removeTranslator(&toolkit_);
  if (!locale.isEmpty() &&
      toolkit_.load(QLocale(locale), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkit_);
  }
  // Set after the translator, because installing one sets a direction of its own.
  QApplication::setLayoutDirection(direction);
}

}  // namespace captoria
