// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What commands show on a terminal: findings as warnings, and how far long work is.
#pragma once

#include "app/workspace_view.h"
#include "pipeline/conversion.h"

namespace captoria {

class CliView final : public WorkspaceView, public WorkMonitor {
 public:
  // Hides progress and warnings; errors are shown by the command.
  void BeQuiet() { quiet_ = true; }

  void ShowFinding(const Finding& finding) override;
  std::unique_ptr<JobProgress> BeginWork(Work work) override;

 private:
  bool quiet_ = false;
};

}  // namespace captoria
