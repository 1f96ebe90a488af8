// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The language of the program: the first one, and changing to another. A file that exists but cannot be used is
// reported, and the built-in texts apply.
#pragma once

#include <string>
#include <string_view>

#include "app/workspace.h"

namespace captoria {

// English, for what is shown before the settings are known. Does not report a missing or broken file.
void LoadInitialLanguage(Workspace& workspace);

// Changes to the language with the base name `base`, such as "German.Captoria.exe". False, and nothing changes, if it
// has no file.
bool LoadNewLang(Workspace& workspace, std::string_view base);

// Changes to the language of the settings, or to English if its file is missing.
void RestoreLanguage(Workspace& workspace);

// Who made the language, for `lblStatus4`, which shows `shown`: "Language by Ann (3.5.0)". Without a creator the
// version is added to what is shown; without a version as well, `shown` stays.
std::string LanguageCredit(const LanguageDocument& language, std::string shown);

}  // namespace captoria
