// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Asks for a placement and gives it to the selected cues, or composes the command that does so in a command file. While
// it is open, the current cue shows what would be.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QSlider>
#include <optional>
#include <string>

#include "app/workspace.h"
#include "settings/placement.h"
#include "ui/dialogs/select_subs_dialog.h"

namespace captoria {

// What the dialog begins with, and how high a cue can go.
struct PositionDialogStart {
  SubtitleCue* cue = nullptr;  // the current one; changed while the dialog is open, and back when it is cancelled
  int position = 0;            // pixels above the bottom of the frame; of the current cue or its track
  int maximum = 0;
};

class Form3 final : public QDialog {
  Q_OBJECT

 public:
  // The workspace, and the cue in it, outlive the dialog.
  Form3(Workspace& workspace, CommandMode mode, const PositionDialogStart& start, QWidget* parent);

  // The line for a command file; nothing unless the dialog was to compose one and was confirmed.
  const std::optional<std::string>& ComposedCommand() const { return composed_; }

  void accept() override;
  void reject() override;

 signals:
  // The current cue's placement is another one, for the time being.
  void Previewed();

 private:
  void Build(int maximum);
  QLayout* BuildPosition(int maximum);
  QLayout* BuildAlignment();
  void ShowStart(int position);
  void Preview();
  void Restore();
  Placement Chosen() const;

  Workspace& workspace_;
  CommandMode mode_;
  SubtitleCue* cue_;
  std::string tag_;  // of the cue when the dialog was opened
  QCheckBox* with_position_;
  QSlider* position_;
  QLabel* number_;
  QCheckBox* with_alignment_;
  QButtonGroup* alignment_;
  std::optional<std::string> composed_;
};

}  // namespace captoria
