// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The options dialog: the settings that are not made in the main window, on five pages.
//
// Nothing is changed before "OK", except command files, which are written by buttons of their own, and list fonts of
// tracks that are not open.
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
  // The workspace, the entry in the file manager's menu and the cue that a placement begins with outlive the dialog.
  Form2(Workspace& workspace, ContextMenuEntry& entry, const PositionDialogStart& placement, QWidget* parent);

  // What "OK" has changed; nothing before, or after "Cancel".
  const OptionsEffect& Effect() const { return effect_; }

  // Whether the list of command files may be another one. It may also after "Cancel".
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
