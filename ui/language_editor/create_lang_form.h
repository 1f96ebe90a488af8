// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The widgets of the language editor and where they stand: the original on the leading side, the new file on the
// other. What they do is the dialog's.
#pragma once

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>
#include <utility>
#include <vector>

#include "ui/language_editor/language_tree_model.h"
#include "ui/language_editor/translation_edit.h"

namespace captoria {

class CreateLangForm final : public QWidget {
 public:
  // `version` is the running program's. The models outlive the form.
  CreateLangForm(QString version, QAbstractItemModel* originals, QAbstractItemModel* translations, QWidget* parent);

  // Each in a colour of its own when it is not the running program's. Empty: nothing is loaded.
  void ShowOriginalVersion(const QString& text) { ShowVersion(original_version, text); }
  void ShowEditedVersion(const QString& text) { ShowVersion(edited_version, text); }

  QComboBox* const original_box;
  QComboBox* const edited_box;
  QLabel* const original_version;
  QLabel* const edited_version;
  QTreeView* const original_tree;
  QTreeView* const edited_tree;
  QPlainTextEdit* const original_text;
  TranslationEdit* const translation;
  QCheckBox* const only_untranslated;
  QCheckBox* const auto_create;
  QLabel* const progress;
  QLineEdit* const creator;
  QLabel* const saved;
  QPushButton* const update;
  QPushButton* const instructions;
  QPushButton* const save;
  QPushButton* const close;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QLayout* FileRow();
  QWidget* OriginalSide();
  QWidget* EditedSide();
  QLayout* EndRow();
  QLayout* Legend();
  QLabel* CaptionOf(const char* name, const QString& text, QWidget* field);
  void ShowVersion(QLabel* label, const QString& text);
  void UsePalette();

  QString version_;
  std::vector<std::pair<QLabel*, LanguageMark>> legend_;
};

}  // namespace captoria
