// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "tools/cli_context.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace captoria {

void Complain(std::string_view message) {
  std::fprintf(stderr, "captoria-cli: %.*s\n", static_cast<int>(message.size()), message.data());
}

bool Print(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) return true;
  Complain(std::string{"standard output cannot be written: "} + std::strerror(errno));
  return false;
}

}  // namespace captoria
