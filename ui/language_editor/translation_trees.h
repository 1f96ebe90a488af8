// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The two documents of the language editor as trees. The marks of the items show how far the translation is; they
// follow every change.
#pragma once

#include <optional>
#include <string>

#include "localisation/language_edit.h"
#include "ui/language_editor/language_tree_model.h"

namespace captoria {

class TranslationTrees {
 public:
  // Both trees are empty. `parent` is the parent of the models.
  explicit TranslationTrees(QObject* parent);

  void LoadOriginal(const LanguageDocument& original);
  void LoadEdited(EditedLanguage edited);

  LanguageTreeModel& Original() { return originals_; }
  LanguageTreeFilter& Filter() { return filter_; }  // shows the original
  LanguageTreeModel& Edited() { return translations_; }
  const LanguageTreeModel& Edited() const { return translations_; }

  // The functions below need a new document, except where they say otherwise.
  bool HasEdited() const { return edited_.has_value(); }
  bool Has(const LanguageNode& node) const { return edited_->Has(node); }

  // False without a new document.
  bool Changed() const { return edited_ && edited_->Changed(); }

  // As EditedLanguage has them. The tree follows.
  bool AddSection(const std::string& section);
  bool AddItem(const LanguageNode& item, const std::string& text);
  bool Write(const LanguageNode& item, const std::string& text);
  Result<void> Save(const std::string& path, const std::string& creator, const std::string& version);

  // Counts the items of the original, without "Private". Zero without a new document.
  struct Progress {
    int items = 0;
    int translated = 0;
  };
  Progress Count() const;

 private:
  LanguageMark MarkInOriginal(const LanguageNode& node, const std::string& text) const;
  LanguageMark MarkInEdited(const LanguageNode& node) const;
  bool Follow(bool changed);

  std::optional<EditedLanguage> edited_;
  LanguageTreeModel originals_;
  LanguageTreeFilter filter_;
  LanguageTreeModel translations_;
};

}  // namespace captoria
