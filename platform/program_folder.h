// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where the program's own files live: the settings, the language and command files, and "tmp".
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace captoria {

struct ProgramFolders {
  std::string executable;  // of the running program: the bundled tools and shipped language files are here
  std::string data;        // settings, command files, `tmp`; the same folder where that can be written
};

// Gives an environment variable, or nothing when it is not set. Ours to replace so that tests need no environment.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

// `chosen` (from --data) is the data folder when not empty, made absolute. Otherwise it is the executable's folder when
// that can be written, else "captoria" in the user's XDG data folder ($XDG_DATA_HOME, or ~/.local/share; a relative or
// empty value counts as unset, as the XDG Base Directory text 0.8 asks). Nothing is created here.
ProgramFolders FindProgramFolders(const std::string& chosen, const std::string& executable_folder,
                                  const Environment& environment);

// The shipped folder `name`, such as "languages": ../share/captoria/NAME seen from the executable when the program is
// installed, else NAME beside the executable. It need not be there.
std::string ShippedFolder(const ProgramFolders& folders, const std::string& name);

// The folder of the running executable, links resolved; "." when the system does not tell.
std::string ExecutableFolder();

Environment ProcessEnvironment();

}  // namespace captoria
