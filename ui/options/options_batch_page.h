// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Batch": the command file that is run after a subtitle file was loaded, and an editor for a new one. Command files
// are written by the page's own buttons, whatever becomes of the dialog.
#pragma once

#include <QGroupBox>
#include <QMenu>
#include <string>

#include "app/workspace.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/options/batch_editor.h"
#include "ui/options/options_page.h"

namespace captoria {

class OptionsBatchPage final : public OptionsPage {
 public:
  // The workspace, and the cue that a placement begins with, outlive the page.
  OptionsBatchPage(Workspace& workspace, const PositionDialogStart& placement, QWidget* parent);

  void Load(const Settings& settings) override;
  void Store(Settings& settings) const override;

  // Whether there is a command file now that was not there before.
  bool HasMadeFiles() const { return has_made_files_; }

 private:
  QWidget* BuildFileToRun();
  QWidget* BuildNewFile();
  void BuildMenu();

  void Browse();
  void TakeTypedPath();
  void LoadFile(const std::string& path);
  void Clear();
  void Save();
  void Create();
  bool Write(const std::string& path, const CommandFileText& file);

  void OfferCommands(BatchEditor* editor);
  template <typename Dialog>
  void AddComposed(Dialog& dialog);

  Workspace& workspace_;
  PositionDialogStart placement_;
  PathEdit* path_;
  QAbstractButton* browse_;
  BatchEditor* to_run_;
  QPushButton* save_;
  BatchEditor* new_file_;
  QPushButton* create_;
  QMenu* menu_;
  BatchEditor* asking_;  // the editor that the menu is for
  std::string loaded_;   // the file that `to_run_` was filled from
  bool has_made_files_ = false;
};

}  // namespace captoria
