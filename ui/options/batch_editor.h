// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The commands and the comment of one command file. Commands are not typed: on CommandWanted, the owner composes a
// command and adds it.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <string>
#include <vector>

#include "automation/command_file.h"

namespace captoria {

class BatchEditor final : public QWidget {
  Q_OBJECT

 public:
  struct Captions {
    QString commands, comment, add, del;
  };

  // The parts are named lblCommands, lstCommands, lblComment, txtComment, cmdAddComm and cmdDel; their property "Index"
  // is `index`. `finish` becomes the last button of the row.
  BatchEditor(int index, const Captions& captions, QPushButton* finish, QWidget* parent);

  void SetFile(const CommandFileText& file);
  CommandFileText File() const;
  bool IsEmpty() const { return commands_->count() == 0; }

  void AddCommand(const std::string& line);

  // Enables the editor if there is a file to edit.
  void SetUsable(bool usable);

  // The point below the button "Add", on the screen.
  QPoint MenuPlace() const { return add_->mapToGlobal(add_->rect().bottomLeft()); }

 signals:
  void CommandWanted();
  void CommandsChanged();
  void CommentChanged();

 private:
  template <typename Widget>
  Widget* Part(Widget* part, const char* name);
  void Delete();

  int index_;
  std::vector<QWidget*> parts_;
  QListWidget* commands_;
  QLineEdit* comment_;
  QPushButton* add_;
  QPushButton* delete_;
};

}  // namespace captoria
