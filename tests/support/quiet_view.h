// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A view that remembers what it was shown, and stops work when a test wants it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/workspace_view.h"
#include "pipeline/conversion.h"

namespace captoria {

class QuietView final : public WorkspaceView, public WorkMonitor {
 public:
  void ShowFinding(const Finding& finding) override { warnings.push_back(Describe(finding)); }

  void ShowCommandsRun(const std::string& file_name, std::size_t selected) override {
    commands_run.push_back(file_name + ": " + std::to_string(selected));
  }

  std::unique_ptr<JobProgress> BeginWork(Work work) override {
    class Asking final : public JobProgress {
     public:
      explicit Asking(std::function<bool()> goes_on) : goes_on_(std::move(goes_on)) {}
      bool Report(std::size_t, std::size_t) override { return goes_on_(); }

     private:
      std::function<bool()> goes_on_;
    };
    return std::make_unique<Asking>([this, work] { return goes_on(work); });
  }

  std::vector<std::string> warnings;
  std::vector<std::string> commands_run;  // "file name: number of cues selected"
  std::function<bool(Work)> goes_on = [](Work) { return true; };
};

}  // namespace captoria
