// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The two tools that make a film out of bitmaps, and their working copies in the temporary folder.
#pragma once

#include <string>
#include <vector>

#include "base/result.h"
#include "pipeline/temp_folder.h"

namespace captoria {

enum class Tool { DivXMux, BmpToXSub };

// "DivXMux.exe" or "bmptoxsub.exe", on every system.
std::string FileNameOf(Tool tool);

// Files that may be the tool; the first that exists is taken.
using ToolPlaces = std::vector<std::string>;

// Whether a conversion in `program_folder` would find the tool: in one of its places, or as the copy that an earlier
// conversion left in the temporary folder.
bool IsAtHand(Tool tool, const ToolPlaces& places, const std::string& program_folder);

// Copies `tool` into the temporary folder, unless it is there already. NotFound if no place has it.
Result<void> CopyTool(Tool tool, const TempFolder& temp, const ToolPlaces& places);

}  // namespace captoria
