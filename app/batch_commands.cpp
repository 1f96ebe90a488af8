// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/batch_commands.h"

#include <algorithm>
#include <variant>

#include "app/placement_commands.h"
#include "automation/command_file.h"
#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::string_view kPattern = "*.cbx";

// Runs one command; false when its line is at fault.
bool RunCommand(Session& session, const Result<Command>& command) {
  if (!command) return false;
  if (const auto* rule = std::get_if<SelectRule>(&*command)) RunSelectCommand(session, *rule);
  if (const auto* placement = std::get_if<PlacementCommand>(&*command)) RunPosAlCommand(session, *placement);
  return true;
}

void TellFault(Session& session, const std::string& path, std::size_t line, bool is_batch) {
  const std::string text = session.TextFor(messages::kBatchError) + std::to_string(line);
  is_batch ? session.view.Warn(path + ": " + text) : session.prompts.ShowMessage(kProgramTitle, text);
}

}  // namespace

std::size_t RunSelectCommand(Session& session, const SelectRule& rule) {
  return SelectCues(session.tracks.Current().cues, rule, CaseRuleOf(ProcessEnvironment()));
}

std::optional<BatchReport> RunBatch(Session& session, const std::string& path, bool is_batch) {
  SubtitleTrack& track = session.tracks.Current();
  const auto lines = ReadCommandFile(path, track.style.font.charset);
  if (!lines) {
    const std::string& text = lines.error().message;
    is_batch ? session.view.Warn(text) : session.prompts.ShowMessage(kProgramTitle, text);
    return std::nullopt;
  }
  for (const auto& [number, command] : *lines) {
    if (!RunCommand(session, command)) TellFault(session, path, number, is_batch);
  }
  const auto selected = std::ranges::count_if(track.cues, &SubtitleCue::Selected);
  BatchReport report{std::string{GetFileNameOnly(path)}, static_cast<std::size_t>(selected)};
  session.view.ShowCommandsRun(report.file_name, report.selected);
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
