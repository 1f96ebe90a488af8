// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The progress of a long command as a line on the terminal, with the time left. Ctrl-C stops the command.
#pragma once

#include <chrono>
#include <string>

#include "base/job_progress.h"
#include "platform/clock.h"
#include "platform/interrupt.h"

namespace captoria {

// Shows "LABEL 120 of 1500, 2 s left" on standard error if that is a terminal, otherwise nothing. While an object
// lives, an interrupt stops the job instead of the process.
class TerminalProgress final : public JobProgress {
 public:
  enum class Show { Count, Percent, Nothing };

  explicit TerminalProgress(std::string label, Show show = Show::Count);
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;
  ~TerminalProgress() override;

  bool Report(std::size_t done, std::size_t total) override;

 private:
  void Clear();
  std::string TimeLeft(std::size_t done, std::size_t total) const;

  Interrupt interrupt_;
  std::string label_;
  Show show_;
  SteadyClock clock_;
  std::chrono::nanoseconds last_{0};

  // The first report; the time left is estimated from the steps done since then.
  std::chrono::nanoseconds first_{0};
  std::size_t done_at_first_ = 0;
};

}  // namespace captoria
