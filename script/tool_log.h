// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The lines that the tools write to standard error, and the log from which the program reads them.
//
//     divxmux: warning [damaged-video] "C:\film.avi", line 12: text
//     divxmux: warning [damaged-video] "C:\film.avi": text
//     divxmux: note [large-film]: text
//
// The kinds are the names of NameOf. A quotation mark in a path is doubled. In path and text a control character is
// written as "\x" and two hexadecimal digits, so that it can neither break the line nor move the cursor of a terminal.
// A backslash before an "x" is written "\x5C" to keep it apart from these.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/finding.h"

namespace captoria {

// The log is beside the script. captoria-run writes it and keeps it locked until it ends.
inline constexpr const char* kToolLogName = "divxmux.log";

// The line for `finding`, without a line end. `tool` is a name of lower-case letters and "-".
std::string ToolLine(std::string_view tool, const Finding& finding);

// The line for any other message of a tool: "divxmux: text".
std::string ToolLine(std::string_view tool, std::string_view message);

struct ToolLog {
  std::vector<std::string> last_lines;  // at most ten, not counting findings
  Findings findings;                    // as the tools gave them to ToolLine
};

// Reads the last 64 KiB of the log at `path`; empty if there is no log. Only a line that is exactly what ToolLine
// writes counts as a finding.
ToolLog ReadToolLog(const std::string& path);

}  // namespace captoria
