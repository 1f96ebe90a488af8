// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A page of the options dialog, and what such pages are built of.
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

  // Shows the settings that the page is for.
  virtual void Load(const Settings& settings) = 0;

  // Puts what is shown into those settings.
  virtual void Store(Settings& settings) const = 0;
};

// A label that leads the keyboard to `field`.
QLabel* FieldLabel(QWidget* field, const char* name, const QString& text);

// Words about what stands above: smaller, paler, over as many lines as they need.
QLabel* Note(const char* name, const QString& text, QWidget* parent);

// A button that is a sign; what it does is its tool tip and what screen readers tell.
QAbstractButton* SmallButton(const QString& name, const QString& sign, const QString& what, QWidget* parent);

// A button that shows the text `help` under the dialog's title.
QAbstractButton* HelpButton(const char* name, const QString& about, const std::string& help, Prompts& prompts,
                            QWidget* parent);

// What belongs to a check box or an option stands below it, a bit farther in.
QLayout* Indented(QWidget* part, Qt::Alignment alignment = {});

// Shows a number, also one that could not be typed: a settings file may hold it.
void ShowNumber(QSpinBox* field, int number);

// A path that is typed or shown. One that is not edited is given back byte for byte.
class PathEdit final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

  void SetPath(const std::string& path);
  std::string Path() const;

 private:
  std::string shown_;
};

// A check box, and the folder that it is about: that can be given only while the box is checked.
class FolderOption final : public QWidget {
 public:
  // The parts are named chk, txt and cmd with `name` behind it. The prompts outlive the widget.
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
