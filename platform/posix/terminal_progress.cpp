// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/terminal_progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

namespace captoria {

TerminalProgress::TerminalProgress(std::string label, Show show)
    : label_(std::move(label)), show_(::isatty(STDERR_FILENO) != 0 ? show : Show::Nothing) {}

TerminalProgress::~TerminalProgress() { Clear(); }

void TerminalProgress::Clear() {
  if (last_.count() > 0) std::fputs("\r\033[K", stderr);
}

bool TerminalProgress::Report(std::size_t done, std::size_t total) {
  constexpr std::chrono::milliseconds kPause{100};
  const auto now = clock_.Elapsed();
  if (show_ == Show::Nothing || done == 0 || done > total) return !Interrupt::Requested();
  if (first_.count() == 0) first_ = now, done_at_first_ = done;
  if (now - last_ < kPause) return !Interrupt::Requested();
  Clear();
  last_ = now;
  const std::string left = TimeLeft(done, total);
  if (show_ == Show::Percent) {
    std::fprintf(stderr, "%s %zu %%%s", label_.c_str(), done * 100 / total, left.c_str());
  } else {
    std::fprintf(stderr, "%s %zu of %zu%s", label_.c_str(), done, total, left.c_str());
  }
  return !Interrupt::Requested();
}

std::string TerminalProgress::TimeLeft(std::size_t done, std::size_t total) const {
  constexpr std::chrono::milliseconds kTellsNothing{300};
  const auto passed = clock_.Elapsed() - first_;
  if (done <= done_at_first_ || passed < kTellsNothing) return {};
  const auto left = passed / static_cast<long>(done - done_at_first_) * static_cast<long>(total - done);
  return ", " + std::to_string(std::chrono::ceil<std::chrono::seconds>(left).count()) + " s left";
}

}  // namespace captoria
