// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The texts of a window that a language file may replace, found by one walk over its widgets and actions.
//
// A text's key is the object name of what shows it: of the window for its title, "name" for a caption, "name_k" for the
// caption of the member k of an array (objects of one name, told apart by their property "Index"), "name_i" for the
// i-th tab or toolbar button, counted from 1 without separators. A tool tip's key ends in "_ToolTipText", that of a
// name only screen readers tell in "_AccessibleName". Objects without a name have no key.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include <vector>

#include "localisation/language_document.h"

namespace captoria {

// The property of objects whose captions tell of the user's data: they keep what the program sets.
inline constexpr const char* kShowsData = "showsData";

struct Caption {
  QString key;
  QString text;  // as it is now
  std::function<void(const QString&)> set;
};

// In the order of the window's own objects; none with an empty text.
std::vector<Caption> CaptionsOf(QWidget& window);

// Gives a window the texts of one language after the other. What a language lacks gets the text it was built with.
class WindowCaptions {
 public:
  // `window`, which keeps its built-in texts until Apply, outlives the object. Its object name is the window's name in
  // language files.
  explicit WindowCaptions(QWidget& window) : window_(window) {}

  void Apply(const LanguageDocument& language);

 private:
  QWidget& window_;
  std::map<QString, QString> built_in_;
};

// For windows that are made anew each time they are shown.
void ApplyCaptions(QWidget& window, const LanguageDocument& language);

}  // namespace captoria
