// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// --commands FILE: a command file that is run on every subtitle file a command loads.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "app/preferences.h"
#include "base/result.h"

namespace captoria {

void AddCommandsOption(CLI::App& command, std::string& file);

// Makes loading run `file` instead of the command file that the settings name; an empty name changes nothing. The error
// of a file that cannot be run names the file.
Result<void> UseCommands(Preferences& preferences, const std::string& file);

}  // namespace captoria
