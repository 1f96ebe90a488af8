// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Progress of a long command: a line on the terminal that counts, how long it may still take, and Ctrl-C to stop it.
#pragma once

#include <chrono>
#include <string>

#include "platform/clock.h"
#include "platform/job_progress.h"

namespace captoria {

// Shows "LABEL 120 of 1500, 2 s left" on standard error when that is a terminal, nothing otherwise. While an object
// lives, an interrupt or a termination signal stops the job instead of the process.
class TerminalProgress final : public JobProgress {
 public:
  explicit TerminalProgress(std::string label);
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;
  ~TerminalProgress() override;

  bool Report(std::size_t done, std::size_t total) override;

 private:
  void Clear();

  std::string label_;
  bool visible_;
  SteadyClock clock_;
  std::chrono::nanoseconds last_{0};
};

}  // namespace captoria
