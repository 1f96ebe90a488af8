// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where the tools are: in the program's folders, at the place that the settings name, or where the user says.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/workspace.h"
#include "pipeline/tool_copies.h"

namespace captoria {

// The files that may be `tool`, best first.
ToolPlaces PlacesOf(Tool tool, const Settings& settings, const ProgramFolders& folders);

// What is wrong with `path` as the place of `tool`: nothing typed, or no such file. If nothing is wrong, the path is
// stored at once, without the blanks around it.
std::optional<std::string> AcceptToolPath(Workspace& workspace, Tool tool, const std::string& path);

// Asks the user until there is a path, and stores it. False: the user gave up.
using AskForTool = std::function<bool(Workspace& workspace, Tool tool)>;

// By a file dialog.
bool AskForToolFile(Workspace& workspace, Tool tool);

// Makes sure that the tools which a conversion needs are at hand, and asks for a missing one. NotFound if the user gave
// up.
Result<void> LocateTools(Workspace& workspace, const AskForTool& ask);

}  // namespace captoria
