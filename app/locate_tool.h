// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where a tool is that does not lie in the program's folder: as the settings say, or else the user.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/session.h"
#include "pipeline/tool_copies.h"

namespace captoria {

// What is wrong with `path` as the place of `tool`: nothing typed, or no such file. Nothing is wrong: it is stored, at
// once, without the blanks around it.
std::optional<std::string> AcceptToolPath(Session& session, Tool tool, const std::string& path);

// Asks the user until there is a path, which is then stored. Nothing: the user gave up.
using AskForTool = std::function<std::optional<std::string>(Session& session, Tool tool)>;

// By a file dialog.
std::optional<std::string> AskForToolFile(Session& session, Tool tool);

// The stored path where there is a file, else what the user is asked for.
std::optional<std::string> ToolPath(Session& session, Tool tool, const AskForTool& ask);

}  // namespace captoria
