// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Batch": the command file that runs after a subtitle file is loaded, and an editor for a new command file. The page's
// own buttons write command files, even if the dialog is cancelled later.
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
  // The workspace and the cue of `placement` outlive the page.
  OptionsBatchPage(Workspace& workspace, const PositionDialogStart& placement, QWidget* parent);

  void Load(const Settings& settings) override;
  void Store(Settings& settings) const override;

  // Whether a new command file was created.
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
  BatchEditor* asking_;  // the editor that gets the command chosen in the menu
  std::string loaded_;   // the file shown in `to_run_`
  bool has_made_files_ = false;
};

}  // namespace captoria
