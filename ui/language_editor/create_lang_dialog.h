// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The editor of language files: a read-only original beside a new file, which the user translates item by item. Files
// are created and saved in the user's data folder.
#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "app/workspace.h"
#include "localisation/language_files.h"
#include "ui/language_editor/create_lang_form.h"
#include "ui/language_editor/translation_trees.h"

namespace captoria {

class frmCreateLang final : public QDialog {
  Q_OBJECT

 public:
  // `version` is the program's version, such as "3.5.0". The workspace outlives the dialog.
  frmCreateLang(Workspace& workspace, const std::string& version, QWidget* parent);

  // Offers to save changes. The dialog stays open if saving fails.
  void reject() override;

 signals:
  // The language in use was saved; `base` is its base name.
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

  LanguageNode NodeInOriginal();
  LanguageNode NodeInEdited() const;
  void ShowPrivate();
  void ShowChanges();
  void ShowWhetherSaved();
  void Tell(const std::string& text) const { workspace_.prompts.ShowMessage(kProgramTitle, text); }

  Workspace& workspace_;
  std::vector<LanguageFile> files_;  // entries of both boxes
  QString original_name_;            // file name of the loaded original; empty if none is loaded
  QString edited_name_;
  bool following_ = false;  // one tree is following the selection of the other

  TranslationTrees trees_;
  CreateLangForm* form_;
};

}  // namespace captoria
