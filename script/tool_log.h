// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the tools said while the script ran.
#pragma once

#include <string>
#include <vector>

namespace captoria {

struct ScriptLog {
  std::vector<std::string> last_lines;  // at most ten
  std::vector<std::string> warnings;    // what a tool marked as such, without the mark
};

// Of the log at `path`; empty when there is none. Only the last 64 KiB are looked at.
ScriptLog ReadScriptLog(const std::string& path);

}  // namespace captoria
