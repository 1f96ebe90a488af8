// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The two tools that make a film out of bitmaps, and their working copies in the temporary folder.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "base/result.h"
#include "pipeline/temp_folder.h"

namespace captoria {

enum class Tool { DivXMux, BmpToXSub };

// "DivXMux.exe" or "bmptoxsub.exe", on every system.
std::string FileNameOf(Tool tool);

// Gives the path of a tool that is nowhere to be found; nothing when the user gives up.
using LocateTool = std::function<std::optional<std::string>(Tool)>;

// Copies `tool` into the temporary folder, unless it is there: from the first of `folders` that has it, else from the
// place that `locate` knows. NotFound when that knows none.
Result<void> CopyTool(Tool tool, const TempFolder& temp, std::span<const std::string> folders,
                      const LocateTool& locate);

}  // namespace captoria
