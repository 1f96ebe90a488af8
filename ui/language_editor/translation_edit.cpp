// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/language_editor/translation_edit.h"

#include <QKeyEvent>
#include <QSignalBlocker>

#include "ui/texts/qt_text.h"

namespace captoria {

TranslationEdit::TranslationEdit(QWidget* parent) : QPlainTextEdit(parent) { setTabChangesFocus(true); }

void TranslationEdit::ShowText(const std::string& text) {
  const QSignalBlocker quiet(this);  // until `raw_` matches the text
  shown_ = text;
  setPlainText(ToQt(text));
  raw_ = Raw();
  selectAll();
}

// Not toPlainText, which replaces no-break spaces by plain spaces.
QString TranslationEdit::Raw() const { return document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'); }

std::string TranslationEdit::Text() const {
  if (!Edited()) return shown_;
  QString text = Raw();
  if (shown_.find("\r\n") != std::string::npos) text.replace("\n", "\r\n");
  return FromQt(text);
}

void TranslationEdit::keyPressEvent(QKeyEvent* event) {
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (is_enter && modifiers == Qt::ShiftModifier && !isReadOnly()) return textCursor().insertBlock();
  if (is_enter && modifiers == Qt::NoModifier) {
    emit Entered();
    return;
  }
  const bool is_step = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  if (is_step && modifiers == Qt::NoModifier) {
    const bool up = event->key() == Qt::Key_Up;
    QTextCursor cursor = textCursor();
    if (!cursor.movePosition(up ? QTextCursor::Up : QTextCursor::Down)) {
      emit Stepped(up ? -1 : 1);
      return;
    }
  }
  QPlainTextEdit::keyPressEvent(event);
}

}  // namespace captoria
