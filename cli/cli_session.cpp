// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/cli_session.h"

#include <unistd.h>

#include <iostream>

#include "platform/program_folder.h"

namespace captoria {

CliSession::CliSession(const std::string& data_folder)
    : prompts_(std::cin, std::cerr, ::isatty(STDIN_FILENO) != 0), session(CliFolders(data_folder), prompts_, view_) {}

ProgramFolders CliFolders(const std::string& data_folder) {
  return FindProgramFolders(data_folder, ExecutableFolder(), ProcessEnvironment());
}

Result<void> ApplyAssignments(Session& session, std::span<const std::string> assignments) {
  for (const std::string& assignment : assignments) {
    const auto equals = assignment.find('=');
    if (equals == assignment.npos) {
      return Failure(ErrorKind::Unsupported, "\"" + assignment + "\" is not of the form KEY=VALUE");
    }
    const std::string_view text = assignment;
    if (auto applied = session.Override(text.substr(0, equals), text.substr(equals + 1)); !applied) return applied;
  }
  return {};
}

}  // namespace captoria
