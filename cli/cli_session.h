// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The session of a command: settings from the data folder, questions on the terminal.
#pragma once

#include <span>
#include <string>

#include "app/session.h"
#include "base/result.h"
#include "cli/cli_view.h"
#include "platform/terminal_prompts.h"

namespace captoria {

class CliSession {
 public:
  // An empty `data_folder` is the program's own.
  explicit CliSession(const std::string& data_folder);

 private:
  TerminalPrompts prompts_;
  CliView view_;

 public:
  Session session;
};

// The folders of a command; an empty `data_folder` is the program's own.
ProgramFolders CliFolders(const std::string& data_folder);

// Overrides settings by texts of the form KEY=VALUE.
Result<void> ApplyAssignments(Session& session, std::span<const std::string> assignments);

}  // namespace captoria
