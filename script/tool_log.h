// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The lines that the tools write to standard error, and the log in which the program finds them again.
//
//     divxmux: warning [damaged-video] "C:\film.avi", line 12: text
//     divxmux: warning [damaged-video] "C:\film.avi": text
//     divxmux: note [large-film]: text
//
// The kinds are those of NameOf. Inside the quotation marks a mark is doubled. Every control character, here and in the
// text, is written as "\x" and two hexadecimal digits, so that it can neither break the line nor move the cursor of a
// terminal; for that a backslash before an "x" is written "\x5C".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/finding.h"

namespace captoria {

// Beside the script that runs the tools; captoria-run writes it and keeps it locked until it ends.
inline constexpr const char* kToolLogName = "divxmux.log";

// The line for `finding`, without a line end. `tool` is a name of lower-case letters and "-".
std::string ToolLine(std::string_view tool, const Finding& finding);

// The line for any other message of a tool: "divxmux: text".
std::string ToolLine(std::string_view tool, std::string_view message);

struct ToolLog {
  std::vector<std::string> last_lines;  // at most ten, without the findings
  Findings findings;                    // as they were given to ToolLine
};

// Reads the last 64 KiB of the log at `path`; empty if there is no log. Only a line that is exactly what ToolLine
// writes counts as a finding.
ToolLog ReadToolLog(const std::string& path);

}  // namespace captoria
