// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Asks for a placement and applies it to the selected cues, or composes the command for a command file. While the
// dialog is open, the current cue previews the placement.
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

// Initial state of the dialog and the range of positions.
struct PositionDialogStart {
  SubtitleCue* cue = nullptr;  // current cue; changed while the dialog is open, restored on Cancel
  int position = 0;            // of the current cue or its track, in pixels above the bottom of the frame
  int maximum = 0;
};

class Form3 final : public QDialog {
  Q_OBJECT

 public:
  // The workspace and its cue outlive the dialog.
  Form3(Workspace& workspace, CommandMode mode, const PositionDialogStart& start, QWidget* parent);

  // The line for a command file, if the mode is ComposeOnly and the user confirmed.
  const std::optional<std::string>& ComposedCommand() const { return composed_; }

  void accept() override;
  void reject() override;

 signals:
  // The placement of the current cue changed for the preview.
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
  std::string tag_;  // the cue's original tag
  QCheckBox* with_position_;
  QSlider* position_;
  QLabel* number_;
  QCheckBox* with_alignment_;
  QButtonGroup* alignment_;
  std::optional<std::string> composed_;
};

}  // namespace captoria
