// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The four fields along the bottom edge: messages, cues outside the safe area, selected cues, the language.
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QTimer>
#include <optional>

#include "localisation/language_document.h"

namespace captoria {

class StatusLabels final : public QObject {
 public:
  // The language, which may change, outlives the object.
  StatusLabels(QStatusBar* bar, const LanguageDocument& language);

  // Shown for some seconds.
  void Tell(const QString& text);

  // The commands of the file `name` were run.
  void TellBatch(const QString& name);

  // The number of cues outside, none for a track without cues of its own. `fitted`: they will be made to fit.
  void ShowOutside(std::optional<int> count, bool fitted);

  void ShowSelected(int count);

  // Whose translation is on screen.
  void ShowLanguage(const QString& text) { language_->setText(text); }
  QString Language() const { return language_->text(); }

 private:
  const LanguageDocument& words_;
  QLabel* message_;
  QLabel* outside_;
  QLabel* selected_;
  QLabel* language_;
  QTimer timer_;
};

}  // namespace captoria
