// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How a tool tells the program that started it how far it is: a small file of one line, "DONE TOTAL", whose name comes
// in an environment variable. Between the two there may be a script, a terminal window and a runner; a file needs none
// of them to pass anything on.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "platform/clock.h"
#include "platform/rewritten_file.h"

namespace captoria {

// Holds the path of the progress file, absolute, since a tool runs in a folder of its own. Empty or unset: nobody asks.
inline constexpr const char* kProgressVariable = "DIVXMUX_PROGRESS";

// The tool's end. Progress is not worth failing for: where the file cannot be written, nothing is, and nobody is told.
class ProgressFile {
 public:
  // Begins the file anew; with an empty path there is none. What the path leads to by a symbolic link is left alone.
  explicit ProgressFile(const std::string& path) : file_(path) {}

  // May be called as often as one likes: the first call writes, and then one in a tenth of a second.
  void Write(std::size_t done, std::size_t total);

 private:
  RewrittenFile file_;
  SteadyClock clock_;
  std::chrono::nanoseconds next_{0};
};

// The other end: done and total, 0 <= done <= total and total > 0. Nothing while there is no such file, or what it
// holds is not (or not yet) such a line and that alone.
std::optional<std::pair<std::size_t, std::size_t>> ReadProgress(const std::string& path);

}  // namespace captoria
