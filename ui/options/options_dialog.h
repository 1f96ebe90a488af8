// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The options dialog: five pages of settings that the main window does not offer.
//
// Nothing changes before "OK", except command files, which have buttons of their own, and the list fonts of tracks that
// are not open.
#pragma once

#include <QDialog>
#include <QTabWidget>
#include <vector>

#include "app/options_commands.h"
#include "automation/context_menu.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/options/options_page.h"

namespace captoria {

class OptionsBatchPage;
class OptionsExtraPage;
class OptionsFontsPage;

class Form2 final : public QDialog {
 public:
  // The workspace, `entry` and the cue of `placement` outlive the dialog.
  Form2(Workspace& workspace, ContextMenuEntry& entry, const PositionDialogStart& placement, QWidget* parent);

  // What "OK" changed; nothing before "OK" or after "Cancel".
  const OptionsEffect& Effect() const { return effect_; }

  // Whether command files were created. Possible even after "Cancel".
  bool BatchFilesChanged() const;

  void accept() override;

 private:
  void Tell(const Result<void>& outcome);

  Workspace& workspace_;
  ContextMenuEntry& entry_;
  QTabWidget* tabs_;
  std::vector<OptionsPage*> pages_;
  OptionsFontsPage* fonts_;
  OptionsBatchPage* batch_;
  OptionsExtraPage* extra_;
  OptionsEffect effect_;
};

}  // namespace captoria
