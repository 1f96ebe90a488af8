// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Fonts of the settings as Qt fonts.
#pragma once

#include <QFont>

#include "settings/track_style.h"
#include "ui/texts/qt_text.h"

namespace captoria {

inline QFont ToQFont(const Font& choice) {
  QFont font(ToQt(choice.name));
  if (choice.size > 0) font.setPointSizeF(choice.size);
  font.setBold(choice.bold);
  font.setItalic(choice.italic);
  return font;
}

// The font of a cue list: the window's font unless the user chose another.
inline QFont ListFont(const Font& font, const QFont& window) {
  const bool chosen =
      font.name != kDefaultListFontName || font.size != kDefaultListFontSize || font.bold || font.italic;
  return chosen ? ToQFont(font) : window;
}

}  // namespace captoria
