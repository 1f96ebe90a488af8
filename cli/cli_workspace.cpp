// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/cli_workspace.h"

#include "cli/cli_context.h"
#include "platform/program_folder.h"

namespace captoria {

ProgramFolders CliFolders(const std::string& data_folder) {
  return FindProgramFolders(data_folder, ExecutableFolder(), ProcessEnvironment());
}

Preferences CliPreferences(const std::string& data_folder, Prompts& prompts) {
  Preferences preferences(CliFolders(data_folder).data, prompts);
  preferences.remembers = false;
  if (preferences.Problem()) Complain(*preferences.Problem());
  return preferences;
}

Result<void> ApplyAssignments(Preferences& preferences, std::span<const std::string> assignments) {
  for (const std::string& assignment : assignments) {
    const auto equals = assignment.find('=');
    if (equals == assignment.npos) {
      return Failure(ErrorKind::Unsupported, "\"" + assignment + "\" is not of the form KEY=VALUE");
    }
    const std::string_view text = assignment;
    auto applied = preferences.Override(text.substr(0, equals), text.substr(equals + 1));
    if (!applied) return applied;
  }
  return {};
}

}  // namespace captoria
