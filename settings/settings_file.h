// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The settings file as the program finds it when it starts. A file that cannot be used does not stop the program and is
// not lost: it is put aside under a name of its own, and the defaults apply.
#pragma once

#include <optional>
#include <string>

#include "settings/ini_document.h"

namespace captoria {

struct OpenedSettings {
  IniDocument document;               // empty where there was no file or none that could be read
  std::optional<std::string> report;  // what happened to an unusable file, naming both paths; for the caller to show
};

// An unusable "Captoria.ini" becomes "Captoria.ini.damaged", or "Captoria.ini.damaged-2" and so on beside older ones.
// Where its folder does not allow that it stays, and so does a folder of that name; nothing can be saved then.
OpenedSettings OpenSettingsFile(const std::string& path);

}  // namespace captoria
