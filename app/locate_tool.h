// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where a tool is that does not lie in the program's folder: as the settings say, or else the user.
#pragma once

#include <optional>
#include <string>

#include "app/session.h"
#include "pipeline/tool_copies.h"

namespace captoria {

// What is wrong with `path` as the place of `tool`: nothing typed, or no such file. Nothing is wrong: it is stored, at
// once, without the blanks around it.
std::optional<std::string> AcceptToolPath(Session& session, Tool tool, const std::string& path);

// The path of the tool; the user is asked until there is one. Nothing: the user gave up.
std::optional<std::string> ToolPath(Session& session, Tool tool);

}  // namespace captoria
