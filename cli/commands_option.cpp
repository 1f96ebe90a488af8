// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/commands_option.h"

#include "automation/command_file.h"
#include "cli/cli_context.h"
#include "platform/files.h"

namespace captoria {

void AddCommandsOption(CLI::App& command, std::string& file) {
  command
      .add_option("--commands", file,
                  "A command file (.cbx) to run on each subtitle file, instead of the one the settings name")
      ->type_name("FILE");
}

Result<void> UseCommands(Session& session, const std::string& file) {
  if (file.empty()) return {};
  // Read here once, so that a file that is of no use stops the command before its work and not in the middle.
  if (auto lines = ReadCommandFile(file); !lines) return tl::unexpected(lines.error());
  // Not as a stored setting: that would lose the blanks a name may end in.
  session.settings.BatchToRun = AbsolutePath(file);
  return {};
}

}  // namespace captoria
