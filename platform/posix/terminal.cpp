// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/terminal.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/interrupt.h"

namespace captoria {

bool InputIsTerminal() { return ::isatty(STDIN_FILENO) != 0; }

bool AwaitLine() {
  while (!Interrupt::Requested()) {
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    if (::poll(&input, 1, 100) <= 0) continue;
    std::array<char, 256> line;
    const ssize_t got = ::read(STDIN_FILENO, line.data(), line.size());
    if (got >= 0 || errno != EINTR) return true;
  }
  return false;
}

void OutliveReaders() { ::signal(SIGPIPE, SIG_IGN); }

}  // namespace captoria
