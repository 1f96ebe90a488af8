// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The workspace of a command: settings from the data folder and the command line.
#pragma once

#include <span>
#include <string>

#include "app/workspace.h"
#include "base/result.h"
#include "cli/cli_view.h"

namespace captoria {

// The folders of a command; an empty `data_folder` is the program's own.
ProgramFolders CliFolders(const std::string& data_folder);

// Opens the settings for a command, which never saves them by itself, and complains if they cannot be used.
Preferences CliPreferences(const std::string& data_folder, Prompts& prompts);

// Overrides settings by texts of the form KEY=VALUE.
Result<void> ApplyAssignments(Preferences& preferences, std::span<const std::string> assignments);

}  // namespace captoria
