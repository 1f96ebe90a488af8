// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/locate_tool.h"

#include "base/ascii.h"
#include "platform/files.h"
#include "settings/key_table.h"

namespace captoria {
namespace {

const std::string& StoredPath(const Session& session, Tool tool) {
  return tool == Tool::DivXMux ? session.settings.DivXMuxPath : session.settings.bmpToxSubPath;
}

}  // namespace

std::optional<std::string> AcceptToolPath(Session& session, Tool tool, const std::string& path) {
  const bool mux = tool == Tool::DivXMux;
  const std::string trimmed{Trim(path)};
  if (trimmed.empty()) return session.TextFor(mux ? messages::kSetMuxPath : messages::kSetConverterPath);
  if (!FileExists(trimmed)) {
    return session.TextFor(mux ? messages::kSetValidMuxPath : messages::kSetValidConverterPath);
  }
  const auto stored = session.Store(mux ? keys::kDivXMuxPath : keys::kBmpToXSubPath, trimmed);
  if (!stored) return stored.error().message;
  return std::nullopt;
}

std::optional<std::string> AskForToolFile(Session& session, Tool tool) {
  const std::string name = FileNameOf(tool);
  while (true) {
    const auto path = session.prompts.AskFileToOpen("File " + name + " not found. Please, set the path for this file",
                                                    {{name, name}}, StoredPath(session, tool));
    if (!path) return std::nullopt;
    const auto refused = AcceptToolPath(session, tool, *path);
    if (!refused) return StoredPath(session, tool);
    session.prompts.ShowMessage(kProgramTitle, *refused);
  }
}

std::optional<std::string> ToolPath(Session& session, Tool tool, const AskForTool& ask) {
  const std::string& stored = StoredPath(session, tool);
  return FileExists(stored) ? stored : ask(session, tool);
}

}  // namespace captoria
