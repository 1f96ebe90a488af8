// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/language_commands.h"

#include <utility>

#include "localisation/language_files.h"

namespace captoria {
namespace {

// A broken file keeps its name in the settings, so that it is used again once it has been repaired.
void Take(Workspace& workspace, std::string_view base, LanguageDocument document) {
  workspace.language = {std::move(document), std::string{base}};
  workspace.preferences.settings.Lang = LanguageName(base);
}

}  // namespace

void LoadInitialLanguage(Workspace& workspace) {
  Take(workspace, kInitialLanguage, {});
  const auto path = FindLanguageFile(workspace.folders, kInitialLanguage);
  if (!path) return;
  if (auto loaded = LanguageDocument::Load(*path)) workspace.language.document = std::move(*loaded);
}

bool LoadNewLang(Workspace& workspace, std::string_view base) {
  const auto path = FindLanguageFile(workspace.folders, base);
  if (!path) return false;
  auto loaded = LanguageDocument::Load(*path);
  Take(workspace, base, loaded ? std::move(*loaded) : LanguageDocument{});
  if (!loaded) workspace.reporter.Note({.kind = FindingKind::ToolMessage, .message = loaded.error().message});
  workspace.view.ShowLanguage();
  return true;
}

void RestoreLanguage(Workspace& workspace) {
  if (LoadNewLang(workspace, LanguageBase(workspace.preferences.settings.Lang))) return;
  if (LoadNewLang(workspace, kInitialLanguage)) return;
  LoadInitialLanguage(workspace);
  workspace.view.ShowLanguage();
}

std::string LanguageCredit(const LanguageDocument& language, std::string shown) {
  if (const auto creator = language.Text(kPrivateSection, kCreatorItem)) shown = "Language by " + *creator;
  if (const auto version = language.Text(kPrivateSection, kVersionItem)) shown += " (" + *version + ")";
  return shown;
}

}  // namespace captoria
