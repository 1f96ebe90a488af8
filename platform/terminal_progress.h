// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Progress of a long command: a line on the terminal that counts, how long it may still take, and Ctrl-C to stop it.
#pragma once

#include <chrono>
#include <string>

#include "base/job_progress.h"
#include "platform/clock.h"
#include "platform/interrupt.h"

namespace captoria {

// Shows "LABEL 120 of 1500, 2 s left" on standard error when that is a terminal, nothing otherwise. While an object
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

  // The first report, from which on it is known how fast things go.
  std::chrono::nanoseconds first_{0};
  std::size_t done_at_first_ = 0;
};

}  // namespace captoria
