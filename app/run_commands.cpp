// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/run_commands.h"

#include <algorithm>
#include <variant>

#include "app/placement_commands.h"
#include "automation/command_file.h"
#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::string_view kPattern = "*.cbx";

// Runs one command; false if its line has a fault.
bool RunCommand(Project& project, const Result<Command>& command) {
  if (!command) return false;
  if (const auto* rule = std::get_if<SelectRule>(&*command)) RunSelectCommand(project, *rule);
  if (const auto* placement = std::get_if<PlacementCommand>(&*command)) RunPosAlCommand(project, *placement);
  return true;
}

}  // namespace

std::size_t RunSelectCommand(Project& project, const SelectRule& rule) {
  return SelectCues(project.tracks.Current().cues, rule, CaseRuleOf(ProcessEnvironment()));
}

std::optional<CommandReport> RunBatch(Workspace& workspace, const std::string& path) {
  const SubtitleTrack& track = workspace.project.tracks.Current();
  const auto lines = ReadCommandFile(path, track.style.font.charset);
  if (!lines) {
    workspace.reporter.Tell(FindingAbout(FindingKind::CommandFault, path, lines.error().message));
    return std::nullopt;
  }
  for (const auto& [number, command] : *lines) {
    if (RunCommand(workspace.project, command)) continue;
    workspace.reporter.Tell({.kind = FindingKind::CommandFault,
                             .file = path,
                             .line = number,
                             .message = "the command is not understood and was skipped"},
                            workspace.language.TextOf(messages::kBatchError) + std::to_string(number));
  }
  const auto selected = std::ranges::count_if(track.cues, &SubtitleCue::Selected);
  CommandReport report{std::string{GetFileNameOnly(path)}, static_cast<std::size_t>(selected)};
  workspace.view.ShowCommandsRun(report.file_name, report.selected);
  return report;
}

std::vector<std::string> ListCommandFiles(const ProgramFolders& folders) {
  std::vector<std::string> names = ListFiles(folders.executable, kPattern);
  for (std::string& name : ListFiles(folders.data, kPattern)) {
    if (std::ranges::find(names, name) == names.end()) names.push_back(std::move(name));
  }
  return names;
}

std::string CommandFilePath(const ProgramFolders& folders, const std::string& name) {
  std::string own = JoinPath(folders.data, name);
  return FileExists(own) ? own : JoinPath(folders.executable, name);
}

}  // namespace captoria
