// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/locate_tool.h"

#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/files.h"
#include "settings/key_table.h"

namespace captoria {
namespace {

const std::string& StoredPath(const Settings& settings, Tool tool) {
  return tool == Tool::DivXMux ? settings.DivXMuxPath : settings.bmpToxSubPath;
}

}  // namespace

ToolPlaces PlacesOf(Tool tool, const Settings& settings, const ProgramFolders& folders) {
  const std::string name = FileNameOf(tool);
  return {JoinPath(folders.data, name), JoinPath(folders.executable, name), StoredPath(settings, tool)};
}

std::optional<std::string> AcceptToolPath(Workspace& workspace, Tool tool, const std::string& path) {
  const bool mux = tool == Tool::DivXMux;
  const std::string trimmed{Trim(path)};
  if (trimmed.empty()) return workspace.language.TextOf(mux ? messages::kSetMuxPath : messages::kSetConverterPath);
  if (!FileExists(trimmed)) {
    return workspace.language.TextOf(mux ? messages::kSetValidMuxPath : messages::kSetValidConverterPath);
  }
  const auto stored = workspace.preferences.Store(mux ? keys::kDivXMuxPath : keys::kBmpToXSubPath, trimmed);
  if (!stored) return stored.error().message;
  return std::nullopt;
}

bool AskForToolFile(Workspace& workspace, Tool tool) {
  const std::string name = FileNameOf(tool);
  while (true) {
    const auto path = workspace.prompts.AskFileToOpen("File " + name + " not found. Please, set the path for this file",
                                                      {{name, name}}, StoredPath(workspace.preferences.settings, tool));
    if (!path) return false;
    const auto refused = AcceptToolPath(workspace, tool, *path);
    if (!refused) return true;
    workspace.prompts.ShowMessage(kProgramTitle, *refused);
  }
}

Result<void> LocateTools(Workspace& workspace, const AskForTool& ask) {
  for (const Tool tool : {Tool::DivXMux, Tool::BmpToXSub}) {
    const Settings& settings = workspace.preferences.settings;
    if (tool == Tool::BmpToXSub && !settings.UseBmpToXSub) continue;
    if (IsAtHand(tool, PlacesOf(tool, settings, workspace.folders), workspace.folders.data)) continue;
    if (ask(workspace, tool)) continue;
    return Failure(ErrorKind::NotFound, FileNameOf(tool) + " was not found, and no other place was given for it");
  }
  return {};
}

}  // namespace captoria
