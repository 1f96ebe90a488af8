// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "tools/terminal_progress.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <utility>

namespace captoria {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Interrupt(int) { interrupted = 1; }

void Handle(void (*handler)(int)) {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, handler);
}

}  // namespace

TerminalProgress::TerminalProgress(std::string label)
    : label_(std::move(label)), visible_(::isatty(STDERR_FILENO) != 0) {
  interrupted = 0;
  Handle(Interrupt);
}

TerminalProgress::~TerminalProgress() {
  Clear();
  Handle(SIG_DFL);
}

void TerminalProgress::Clear() {
  if (visible_ && last_.count() > 0) std::fputs("\r\033[K", stderr);
}

bool TerminalProgress::Report(std::size_t done, std::size_t total) {
  constexpr std::chrono::milliseconds kPause{100};
  const auto now = clock_.Elapsed();
  if (visible_ && done > 0 && now - last_ >= kPause) {
    Clear();
    last_ = now;
    const auto left = now / static_cast<long>(done) * static_cast<long>(total - done);
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
    std::fprintf(stderr, "%s %zu of %zu, %lld s left", label_.c_str(), done, total, static_cast<long long>(seconds));
  }
  return interrupted == 0;
}

}  // namespace captoria
