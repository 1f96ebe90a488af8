// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The widgets of the language editor and their layout: the original on the leading side, the new file on the other. The
// dialog gives them their behaviour.
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
  // `version` is the program's version. The models outlive the form.
  CreateLangForm(QString version, QAbstractItemModel* originals, QAbstractItemModel* translations, QWidget* parent);

  // Highlighted if it differs from the program's version. Empty if no file is loaded.
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
