// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The folders of the program's own files: settings, language files, command files and "tmp".
//
// If the program is installed below a prefix, the executables are in lib/captoria and its data is in share/captoria. It
// counts as installed if share/captoria/languages exists. Otherwise everything is in one folder.
#pragma once

#include <string>

#include "base/environment.h"

namespace captoria {

struct ProgramFolders {
  std::string executable;  // of the running program; its tools are here too
  std::string data;        // settings, command files, `tmp`; may be the same folder
};

// The data folder is the first that applies:
// - `chosen` (from --data), made absolute, if it is not empty;
// - the executable's folder, if it can be written to and the program is not installed;
// - "captoria" in the user's XDG data folder: $XDG_DATA_HOME, or ~/.local/share if that is unset, empty or relative
// (XDG
//   Base Directory 0.8).
// Creates nothing.
ProgramFolders FindProgramFolders(const std::string& chosen, const std::string& executable_folder,
                                  const Environment& environment);

// The folder `name` of the shipped data, such as "languages": in share/captoria if the program is installed, otherwise
// beside the executable. It may be missing.
std::string ShippedFolder(const ProgramFolders& folders, const std::string& name);

// The folder of the running executable, links resolved; "." if the system cannot tell.
std::string ExecutableFolder();

Environment ProcessEnvironment();

}  // namespace captoria
