// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The language of a session: which one it begins with, and going over to another. A file that is there and cannot be
// used is told in one line through the view, and the texts are the built-in ones then.
#pragma once

#include <string>
#include <string_view>

#include "app/workspace.h"

namespace captoria {

// English, for what is shown before the settings are known. Says nothing of a file that is missing or broken.
void LoadInitialLanguage(Workspace& workspace);

// Goes over to the language with the base name `base`, as in "German.Captoria.exe". False, and nothing is changed, when
// it has no file.
bool LoadNewLang(Workspace& workspace, std::string_view base);

// The language of the settings, else English; without a word when its file is gone.
void RestoreLanguage(Workspace& workspace);

// Who made the language, for `lblStatus4`, which shows `shown`: "Language by Ann (3.5.0)". Without a creator the
// version goes behind what is shown, without either that stays.
std::string LanguageCredit(const LanguageDocument& language, std::string shown);

}  // namespace captoria
