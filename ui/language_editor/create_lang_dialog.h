// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The editor of language files: an original, which is only read, beside a new file, which is translated item by item.
// A file is written when it is created or saved, always in the user's data folder.
#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "app/workspace.h"
#include "localisation/language_edit.h"
#include "localisation/language_files.h"
#include "ui/language_editor/create_lang_form.h"
#include "ui/language_editor/language_tree_model.h"

namespace captoria {

class frmCreateLang final : public QDialog {
  Q_OBJECT

 public:
  // `version` is the running program's, as in "3.5.0". The workspace outlives the dialog.
  frmCreateLang(Workspace& workspace, const std::string& version, QWidget* parent);

  // Asks to save what is not saved. The dialog stays when that fails.
  void reject() override;

 signals:
  // The language in use was saved, under this base name.
  void Saved(const std::string& base);

 private:
  void Connect();
  void FillFiles();
  void ChooseOriginal(int index);
  void ChooseEdited(int index);
  std::optional<LanguageFile> CreateFile();
  bool LoadEdited(const LanguageFile& file);
  bool Save();
  bool AskToSave();
  bool HasChanges() const;

  void SelectOriginal();
  void SelectEdited();
  bool ProvideInEdited(const LanguageNode& node);
  void ShowOriginal(const LanguageNode& node);
  void ShowEdited(const LanguageNode& node, bool is_there);
  bool Update();
  void UpdateAndMoveOn();
  void MoveToNextItem();
  void Step(int rows);
  void Refilter();

  LanguageMark MarkInOriginal(const LanguageNode& node, const std::string& text) const;
  LanguageMark MarkInEdited(const LanguageNode& node) const;
  LanguageNode NodeInEdited() const;
  void ShowPrivate();
  void ShowChanges();
  void ShowWhetherSaved();
  void Tell(const std::string& text) const { workspace_.prompts.ShowMessage(kProgramTitle, text); }

  Workspace& workspace_;
  std::vector<LanguageFile> files_;  // the entries of both boxes
  QString original_name_;            // file name of what is loaded; empty: nothing
  QString edited_name_;
  std::optional<EditedLanguage> edited_;
  bool following_ = false;  // one tree's selection goes where the other's went

  LanguageTreeModel originals_;
  LanguageTreeFilter filter_;
  LanguageTreeModel translations_;

  CreateLangForm* form_;
};

}  // namespace captoria
