// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The texts of a window that a language file may replace. One walk over the widgets and actions finds them.
//
// The key of a text is made from the object name: the window's name for its title, "name" for a caption, "name_k" for
// member k of an array (objects that share a name and differ in their property "Index"), "name_i" for the i-th tab or
// toolbar button, counted from 1 without separators. The key of a tool tip ends in "_ToolTipText", the key of an
// accessible name in "_AccessibleName". Objects without a name have no key.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include <vector>

#include "localisation/language_document.h"

namespace captoria {

// The property of objects whose captions show the user's data. A language file does not change them.
inline constexpr const char* kShowsData = "showsData";

struct Caption {
  QString key;
  QString text;  // current text
  std::function<void(const QString&)> set;
};

// In the order of the window's objects, without empty texts.
std::vector<Caption> CaptionsOf(QWidget& window);

// Applies one language after another to a window. A text that a language lacks falls back to the built-in text.
class WindowCaptions {
 public:
  // `window` outlives the object and must keep its built-in texts until Apply. Its object name is its name in language
  // files.
  explicit WindowCaptions(QWidget& window) : window_(window) {}

  void Apply(const LanguageDocument& language);

 private:
  QWidget& window_;
  std::map<QString, QString> built_in_;
};

// For windows that are created each time they are shown.
void ApplyCaptions(QWidget& window, const LanguageDocument& language);

}  // namespace captoria
