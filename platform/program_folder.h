// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where the program's own files live: the settings, the language and command files, and "tmp".
//
// Installed below a prefix, the executables are in lib/captoria and what they ship is in share/captoria. That they are
// installed is seen by share/captoria/languages being there. Anywhere else, all of it is in one folder.
#pragma once

#include <string>

#include "base/environment.h"

namespace captoria {

struct ProgramFolders {
  std::string executable;  // of the running program; the bundled tools are here
  std::string data;        // settings, command files, `tmp`; may be the same folder
};

// `chosen` (from --data) is the data folder when not empty, made absolute. Otherwise it is the executable's folder when
// that can be written and is not that of an installed program, which leaves it alone for root as well; else "captoria"
// in the user's XDG data folder ($XDG_DATA_HOME, or ~/.local/share; a relative or empty value counts as unset, as the
// XDG Base Directory text 0.8 asks). Nothing is created here.
ProgramFolders FindProgramFolders(const std::string& chosen, const std::string& executable_folder,
                                  const Environment& environment);

// The shipped folder `name`, such as "languages": that of share/captoria when the program is installed, else the one
// beside the executable. It need not be there.
std::string ShippedFolder(const ProgramFolders& folders, const std::string& name);

// The folder of the running executable, links resolved; "." when the system does not tell.
std::string ExecutableFolder();

Environment ProcessEnvironment();

}  // namespace captoria
