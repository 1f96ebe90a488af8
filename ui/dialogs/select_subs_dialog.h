// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Asks by which shape cues are to be selected; selects those of the current track, or composes the command that does
// so in a command file.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <optional>
#include <string>

#include "app/workspace.h"
#include "automation/cue_selection.h"

namespace captoria {

enum class CommandMode { Apply, ComposeOnly };

class frmSelectSubs final : public QDialog {
 public:
  // The workspace outlives the dialog.
  frmSelectSubs(Workspace& workspace, CommandMode mode, QWidget* parent);

  // The line for a command file; nothing unless the dialog was to compose one and was confirmed.
  const std::optional<std::string>& ComposedCommand() const { return composed_; }

  void accept() override;

 private:
  // Whether, where and with which characters a cue begins or ends.
  struct Condition {
    QComboBox* where;
    QLineEdit* characters;
    bool IsSet() const { return where->currentIndex() > 0; }
    bool ForAllLines() const { return where->currentIndex() == 2; }
  };

  Condition AddCondition(QFormLayout* form, const char* label_name, const QString& label, const char* where_name,
                         const char* characters_name);
  std::string CharactersOf(const Condition& condition) const;
  SelectRule Rule() const;

  Workspace& workspace_;
  CommandMode mode_;
  QComboBox* lines_;
  Condition start_;
  Condition end_;
  std::optional<std::string> composed_;
};

}  // namespace captoria
