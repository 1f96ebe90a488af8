// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/tool_copies.h"

#include <algorithm>

#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {

std::string FileNameOf(Tool tool) { return tool == Tool::DivXMux ? "DivXMux.exe" : "bmptoxsub.exe"; }

bool IsAtHand(Tool tool, const ToolPlaces& places, const std::string& program_folder) {
  return std::ranges::any_of(places, FileExists) ||
         FileExists(JoinPath(TempFolder::FirstOf(program_folder), FileNameOf(tool)));
}

Result<void> CopyTool(Tool tool, const TempFolder& temp, const ToolPlaces& places) {
  const std::string name = FileNameOf(tool), copy = temp.File(name);
  if (FileExists(copy)) return {};
  const auto place = std::ranges::find_if(places, FileExists);
  if (place != places.end()) return CopyWholeFile(*place, copy);
  return Failure(ErrorKind::NotFound, name + " was not found, and no other place was given for it");
}

}  // namespace captoria
