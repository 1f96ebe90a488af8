// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The box a translation is typed in. Enter takes it, Shift+Enter breaks the line; Up and Down beyond the text's first
// and last line step to the next item.
#pragma once

#include <QPlainTextEdit>
#include <string>

namespace captoria {

class TranslationEdit final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TranslationEdit(QWidget* parent);

  // Shows `text` (UTF-8), all of it selected.
  void ShowText(const std::string& text);

  // The very text that was shown while it is not edited; otherwise with the line ends that text had, or else LF.
  std::string Text() const;

  // Whether the text is another than what was shown.
  bool Edited() const { return Raw() != raw_; }

 signals:
  void Entered();
  void Stepped(int rows);  // -1 or 1

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString Raw() const;

  std::string shown_;
  QString raw_;  // what Raw gave when `shown_` was shown
};

}  // namespace captoria
