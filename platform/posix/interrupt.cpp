// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/interrupt.h"

#include <signal.h>

#include <csignal>

namespace captoria {
namespace {

constexpr int kSignals[]{SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t requested = 0;
int living = 0;

void Handle(void (*handler)(int)) {
  for (const int number : kSignals) {
    struct sigaction action {};
    if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = handler;
    ::sigaction(number, &action, nullptr);
  }
}

}  // namespace

Interrupt::Interrupt() {
  if (living++ > 0) return;
  requested = 0;
  Handle([](int) { requested = 1; });
}

Interrupt::~Interrupt() {
  if (--living == 0) Handle(SIG_DFL);
}

bool Interrupt::Requested() { return requested != 0; }

}  // namespace captoria
