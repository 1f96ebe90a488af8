// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "tools/terminal_progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

#include "platform/program_folder.h"

namespace captoria {

TerminalProgress::TerminalProgress(std::string label, Show show)
    : label_(std::move(label)),
      show_(::isatty(STDERR_FILENO) != 0 ? show : Show::Nothing),
      file_(ProcessEnvironment()(kProgressVariable).value_or("")) {}

TerminalProgress::~TerminalProgress() { Clear(); }

void TerminalProgress::Clear() {
  if (last_.count() > 0) std::fputs("\r\033[K", stderr);
}

bool TerminalProgress::Report(std::size_t done, std::size_t total) {
  constexpr std::chrono::milliseconds kPause{100};
  file_.Write(done, total);
  const auto now = clock_.Elapsed();
  if (show_ != Show::Nothing && done > 0 && done <= total && now - last_ >= kPause) ShowLine(done, total, now);
  return !Interrupt::Requested();
}

void TerminalProgress::ShowLine(std::size_t done, std::size_t total, std::chrono::nanoseconds now) {
  Clear();
  last_ = now;
  const auto left = now / static_cast<long>(done) * static_cast<long>(total - done);
  const auto seconds = static_cast<long long>(std::chrono::ceil<std::chrono::seconds>(left).count());
  if (show_ == Show::Percent) {
    std::fprintf(stderr, "%s %zu %%, %lld s left", label_.c_str(), done * 100 / total, seconds);
  } else {
    std::fprintf(stderr, "%s %zu of %zu, %lld s left", label_.c_str(), done, total, seconds);
  }
}

}  // namespace captoria
