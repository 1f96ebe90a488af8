// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/language_commands.h"

#include <utility>

#include "localisation/language_files.h"

namespace captoria {

void LoadInitialLanguage(Session& session) {
  session.LangFile = kInitialLanguage;
  session.language = {};
  const auto path = FindLanguageFile(session.folders, kInitialLanguage);
  if (!path) return;
  if (auto loaded = LanguageDocument::Load(*path)) session.language = std::move(*loaded);
}

bool LoadNewLang(Session& session, std::string_view base) {
  const auto path = FindLanguageFile(session.folders, base);
  if (!path) return false;
  auto loaded = LanguageDocument::Load(*path);
  // A broken file keeps its name in the settings, so that it is in use again once it was put right.
  session.LangFile = base;
  session.language = loaded ? std::move(*loaded) : LanguageDocument{};
  if (!loaded) session.view.Warn(loaded.error().message);
  session.view.ShowLanguage();
  return true;
}

void RestoreLanguage(Session& session) {
  if (LoadNewLang(session, LanguageBase(session.settings.Lang))) return;
  if (LoadNewLang(session, kInitialLanguage)) return;
  LoadInitialLanguage(session);
  session.view.ShowLanguage();
}

std::string LanguageCredit(const Session& session, std::string shown) {
  if (const auto creator = session.language.Text(kPrivateSection, kCreatorItem)) shown = "Language by " + *creator;
  if (const auto version = session.language.Text(kPrivateSection, kVersionItem)) shown += " (" + *version + ")";
  return shown;
}

}  // namespace captoria
