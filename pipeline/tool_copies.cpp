// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/tool_copies.h"

#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {

std::string FileNameOf(Tool tool) { return tool == Tool::DivXMux ? "DivXMux.exe" : "bmptoxsub.exe"; }

Result<void> CopyTool(Tool tool, const TempFolder& temp, std::span<const std::string> folders,
                      const LocateTool& locate) {
  const std::string name = FileNameOf(tool), copy = temp.File(name);
  if (FileExists(copy)) return {};
  for (const std::string& folder : folders) {
    if (const std::string path = JoinPath(folder, name); FileExists(path)) return CopyWholeFile(path, copy);
  }
  const auto path = locate(tool);
  if (!path) return Failure(ErrorKind::NotFound, name + " was not found, and no other place was given for it");
  return CopyWholeFile(*path, copy);
}

}  // namespace captoria
