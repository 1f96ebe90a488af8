// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a shell command prints, by lines.
#pragma once

#include <stdio.h>

#include <sstream>
#include <string>
#include <vector>

namespace captoria {

inline std::vector<std::string> OutputOf(const std::string& command) {
  std::stringstream text;
  FILE* pipe = popen(command.c_str(), "r");
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) text.put(static_cast<char>(c));
  pclose(pipe);
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

}  // namespace captoria
