// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The four fields of the status bar: messages, cues outside the safe area, selected cues, the language.
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QTimer>
#include <optional>

#include "localisation/language_document.h"

namespace captoria {

class StatusLabels final : public QObject {
 public:
  // `language`, which may change, outlives the object.
  StatusLabels(QStatusBar* bar, const LanguageDocument& language);

  // Shows `text` for a few seconds.
  void Tell(const QString& text);

  // Reports that the commands of the file `name` have run.
  void TellBatch(const QString& name);

  // Shows the number of cues outside; nothing for a track of bitmaps. `fitted`: they will be reduced to fit.
  void ShowOutside(std::optional<int> count, bool fitted);

  void ShowSelected(int count);

  // Shows whose translation is in use.
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
