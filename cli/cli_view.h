// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a session shows on a terminal: warnings, and how far long work is.
#pragma once

#include "app/session_view.h"

namespace captoria {

class CliView final : public SessionView {
 public:
  // Hides the progress, and warnings as well; errors are told by the command.
  void BeQuiet() { quiet_ = true; }

  void Warn(const std::string& text) override;
  std::unique_ptr<JobProgress> BeginWork(Work work) override;

 private:
  bool quiet_ = false;
};

}  // namespace captoria
