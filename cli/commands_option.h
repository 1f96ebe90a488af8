// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// --commands FILE: a command file that is run on every subtitle file a command loads.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "app/session.h"
#include "base/result.h"

namespace captoria {

void AddCommandsOption(CLI::App& command, std::string& file);

// Has `file` run in place of the one that the settings name; an empty one changes nothing. The error of a file that
// cannot be run names it. After the settings were overridden, or they would be taken again.
Result<void> UseCommands(Session& session, const std::string& file);

}  // namespace captoria
