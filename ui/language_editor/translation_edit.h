// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The edit box for a translation. Enter takes the text, Shift+Enter starts a new line, Up in the first line and Down in
// the last line step to the previous and the next item.
#pragma once

#include <QPlainTextEdit>
#include <string>

namespace captoria {

class TranslationEdit final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TranslationEdit(QWidget* parent);

  // Shows `text` (UTF-8) and selects all of it.
  void ShowText(const std::string& text);

  // If not edited, exactly the text that was shown. Otherwise lines end as they did in that text; LF if it had a single
  // line.
  std::string Text() const;

  // Whether the text differs from the one shown.
  bool Edited() const { return Raw() != raw_; }

 signals:
  void Entered();
  void Stepped(int rows);  // -1 or 1

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString Raw() const;

  std::string shown_;
  QString raw_;  // result of Raw for `shown_`
};

}  // namespace captoria
