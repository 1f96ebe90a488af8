// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/language_editor/translation_trees.h"

#include <algorithm>
#include <utility>

namespace captoria {
namespace {

LanguageMark MarkOf(ItemState state) {
  switch (state) {
    case ItemState::Missing:
      return LanguageMark::Missing;
    case ItemState::Untranslated:
      return LanguageMark::Untranslated;
    case ItemState::Translated:
      break;
  }
  return LanguageMark::Translated;
}

}  // namespace

TranslationTrees::TranslationTrees(QObject* parent)
    : originals_([this](const auto& node, const auto& text) { return MarkInOriginal(node, text); }, parent),
      filter_(originals_, parent),
      translations_([this](const auto& node, const auto&) { return MarkInEdited(node); }, parent) {}

void TranslationTrees::LoadOriginal(const LanguageDocument& original) {
  originals_.Load(original.Element("").name(), original.Sections());
  translations_.Refresh();
}

void TranslationTrees::LoadEdited(EditedLanguage edited) {
  edited_ = std::move(edited);
  translations_.Load(edited_->Document().Element("").name(), edited_->Sections());
  originals_.Refresh();
}

bool TranslationTrees::AddSection(const std::string& section) { return Follow(edited_->AddSection(section)); }

bool TranslationTrees::AddItem(const LanguageNode& item, const std::string& text) {
  return Follow(edited_->AddAttribute(item.section, item.name, text));
}

bool TranslationTrees::Write(const LanguageNode& item, const std::string& text) {
  return Follow(edited_->WriteAttribute(item.section, item.name, text));
}

Result<void> TranslationTrees::Save(const std::string& path, const std::string& creator, const std::string& version) {
  auto saved = edited_->Save(path, creator, version);
  Follow(true);  // "Private" may have changed even if writing failed
  return saved;
}

TranslationTrees::Progress TranslationTrees::Count() const {
  Progress progress;
  for (const LanguageSection& section : originals_.Sections()) {
    if (section.name == kPrivateSection || !edited_) continue;
    progress.items += static_cast<int>(section.items.size());
    progress.translated += static_cast<int>(std::ranges::count_if(section.items, [&](const LanguageItem& item) {
      return edited_->StateOf({section.name, item.name}, item.text) == ItemState::Translated;
    }));
  }
  return progress;
}

bool TranslationTrees::Follow(bool changed) {
  if (changed) {
    translations_.Follow(edited_->Sections());
    originals_.Refresh();
  }
  return changed;
}

LanguageMark TranslationTrees::MarkInOriginal(const LanguageNode& node, const std::string& text) const {
  if (!edited_) return LanguageMark::None;
  if (node.name.empty()) return edited_->Has(node) ? LanguageMark::None : LanguageMark::Missing;
  return MarkOf(edited_->StateOf(node, text));
}

LanguageMark TranslationTrees::MarkInEdited(const LanguageNode& node) const {
  if (originals_.rowCount() == 0 || node.section.empty()) return LanguageMark::None;
  if (!originals_.IndexOf(node).isValid()) return LanguageMark::Extra;
  return node.name.empty() ? LanguageMark::None : MarkOf(edited_->StateOf(node, *originals_.TextOf(node)));
}

}  // namespace captoria
