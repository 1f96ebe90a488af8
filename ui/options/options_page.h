// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A page of the options dialog, and the controls that pages are built from.
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QWidget>
#include <string>

#include "platform/prompts.h"
#include "settings/settings.h"
#include "ui/texts/named.h"

namespace captoria {

class OptionsPage : public QWidget {
 public:
  using QWidget::QWidget;

  // Shows the page's settings.
  virtual void Load(const Settings& settings) = 0;

  // Stores the values shown.
  virtual void Store(Settings& settings) const = 0;
};

// A label whose keyboard shortcut leads to `field`.
QLabel* FieldLabel(QWidget* field, const char* name, const QString& text);

// An explanation of the control above it: smaller, paler, and wrapped.
QLabel* Note(const char* name, const QString& text, QWidget* parent);

// A button with a sign as its text. `what` is its tool tip and accessible name.
QAbstractButton* SmallButton(const QString& name, const QString& sign, const QString& what, QWidget* parent);

// A button that shows the text `help` under the dialog's title.
QAbstractButton* HelpButton(const char* name, const QString& about, const std::string& help, Prompts& prompts,
                            QWidget* parent);

// Indents what belongs to the check box or option above.
QLayout* Indented(QWidget* part, Qt::Alignment alignment = {});

// Shows a number, extending the range if a settings file holds a number outside it.
void ShowNumber(QSpinBox* field, int number);

// An edit box for a path. A path that is not edited is returned byte for byte.
class PathEdit final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

  void SetPath(const std::string& path);
  std::string Path() const;

 private:
  std::string shown_;
};

// A check box with a folder, which can be edited only while the box is checked.
class FolderOption final : public QWidget {
 public:
  // The parts are named "chk", "txt" and "cmd" followed by `name`. The prompts outlive the widget.
  FolderOption(const QString& name, const QString& caption, Prompts& prompts, QWidget* parent);

  void SetFolder(const std::string& folder) { folder_->SetPath(folder); }
  std::string Folder() const { return folder_->Path(); }
  void SetChecked(bool checked) { box_->setChecked(checked); }
  bool IsChecked() const { return box_->isChecked(); }

 private:
  void Browse();

  Prompts& prompts_;
  QCheckBox* box_;
  PathEdit* folder_;
  QAbstractButton* browse_;
};

}  // namespace captoria
