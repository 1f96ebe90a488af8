// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A tool reports its progress to the program through a small file of one line, "DONE TOTAL". An environment variable
// names the file. Between the two there may be a script, a terminal window and a runner; with a file, none of them has
// to pass anything on.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "platform/clock.h"
#include "platform/rewritten_file.h"

namespace captoria {

// Contains the path of the progress file, which is absolute because tools run in a folder of their own. If it is empty
// or unset, the tool reports nothing.
inline constexpr const char* kProgressVariable = "DIVXMUX_PROGRESS";

// The side of the tool. Progress is not worth failing for: if the file cannot be written, errors are ignored.
class ProgressFile {
 public:
  // Empties the file. With an empty path there is no file. Symbolic links are not followed.
  explicit ProgressFile(const std::string& path) : file_(path) {}

  // May be called as often as convenient: the first call writes, later ones at most every tenth of a second.
  void Write(std::size_t done, std::size_t total);

 private:
  RewrittenFile file_;
  SteadyClock clock_;
  std::chrono::nanoseconds next_{0};
};

// The side of the program: done and total, with 0 <= done <= total and total > 0. No value if there is no file or it
// does not (or not yet) contain exactly one such line.
std::optional<std::pair<std::size_t, std::size_t>> ReadProgress(const std::string& path);

}  // namespace captoria
