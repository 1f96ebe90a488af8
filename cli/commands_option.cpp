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

Result<void> UseCommands(Preferences& preferences, const std::string& file) {
  if (file.empty()) return {};
  // Read it once here, so that a useless file stops the command before its work and not in the middle.
  if (auto lines = ReadCommandFile(file); !lines) return tl::unexpected(lines.error());
  // Set directly: as the text of a setting it would lose the blanks that a name may end in.
  preferences.settings.BatchToRun = AbsolutePath(file);
  return {};
}

}  // namespace captoria
