// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Command files at work on the current track, by the user's choice or after every load of a SubRip file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/session.h"
#include "automation/cue_selection.h"

namespace captoria {

// Selects the cues of the current track that meet the rule, and no others; gives how many they are. Small letters are
// those of the user's language.
std::size_t RunSelectCommand(Session& session, const SelectRule& rule);

struct BatchReport {
  std::string file_name;     // without its folder
  std::size_t selected = 0;  // cues of the current track, behind the last command
};

// Runs the command file `path` on the current track, and shows what was run. A line at fault is told by its number and
// left out; a file that cannot be read is told, and nothing is run or given back. When `is_batch`, as for an unattended
// caller, what is told goes to the view and not into message boxes.
std::optional<BatchReport> RunBatch(Session& session, const std::string& path, bool is_batch = false);

// The names of all command files, for a menu: those of the user behind those that came with the program, where these
// are two folders. A user's file hides one of the same name.
std::vector<std::string> ListCommandFiles(const ProgramFolders& folders);

// Where the command file of that name is, or would be.
std::string CommandFilePath(const ProgramFolders& folders, const std::string& name);

}  // namespace captoria
