// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Asks for conditions on the text of cues. Selects the matching cues of the current track, or composes the command for
// a command file.
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

  // The line for a command file, if the mode is ComposeOnly and the user confirmed.
  const std::optional<std::string>& ComposedCommand() const { return composed_; }

  void accept() override;

 private:
  // How a cue has to begin or end: with which characters, in one line or in all.
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
