// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/cli_context.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace captoria {

void Complain(std::string_view message) {
  std::string text{message};
  std::erase(text, '\r');  // message boxes end their lines in CR LF
  std::fprintf(stderr, "captoria-cli: %s\n", text.c_str());
}

bool Print(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) return true;
  Complain(std::string{"standard output cannot be written: "} + std::strerror(errno));
  return false;
}

}  // namespace captoria
