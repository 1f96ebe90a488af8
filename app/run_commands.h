// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Running command files on the current track: by the user's choice, or after every load of a SubRip file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/workspace.h"
#include "automation/cue_selection.h"

namespace captoria {

// Selects the cues of the current track that meet the rule, deselects all others and returns the number selected.
// Letter case follows the user's language.
std::size_t RunSelectCommand(Project& project, const SelectRule& rule);

struct CommandReport {
  std::string file_name;     // without its folder
  std::size_t selected = 0;  // cues of the current track, after the last command
};

// Runs the command file `path` on the current track and shows what ran. A line with a fault is reported by its number
// and skipped; a file that cannot be read is reported, and nothing runs.
std::optional<CommandReport> RunBatch(Workspace& workspace, const std::string& path);

// The names of all command files, for a menu: first those that came with the program, then the user's, if these are two
// folders. A user's file hides one of the same name.
std::vector<std::string> ListCommandFiles(const ProgramFolders& folders);

// Where the command file of that name is, or would be.
std::string CommandFilePath(const ProgramFolders& folders, const std::string& name);

}  // namespace captoria
