// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Opens the settings file at the start of the program. An unusable file does not stop the program and is not lost: it
// is renamed, and the defaults apply.
#pragma once

#include <optional>
#include <string>

#include "settings/ini_document.h"

namespace captoria {

struct OpenedSettings {
  IniDocument document;               // empty if there was no usable file
  std::optional<std::string> report;  // what happened to an unusable file, with both paths; for the user
};

// Renames an unusable "Captoria.ini" to "Captoria.ini.damaged", or to "Captoria.ini.damaged-2" and so on if that
// exists. If it cannot be renamed, or is a folder, it stays and nothing can be saved.
OpenedSettings OpenSettingsFile(const std::string& path);

}  // namespace captoria
