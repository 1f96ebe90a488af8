// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The run that a file manager starts with "/AUTO": nobody watches, the film is made, the program ends.
#pragma once

#include <string>
#include <string_view>

#include "app/make_divx.h"
#include "app/workspace.h"

namespace captoria {

// The argument string of the window program.
struct CommandLine {
  bool unattended = false;  // contains "/AUTO" in any case; not counted inside a path with other slashes
  std::string path;         // the rest, without the quotation marks around it
};
CommandLine ParseCommandLine(std::string_view arguments);

// Opens the video, makes the film if there are subtitles, says so if there are none, and saves the settings.
Outcome RunUnattended(Workspace& workspace, const ConversionBackend& backend, const std::string& path);

}  // namespace captoria
