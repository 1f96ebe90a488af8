// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Carries out a conversion plan: bitmaps, lists, script, film, clean-up. Asks nobody and shows nothing, so it can run
// on any thread.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/finding.h"
#include "base/job_progress.h"
#include "base/result.h"
#include "pipeline/conversion_plan.h"
#include "render/font_collection.h"
#include "script/script_runner.h"

namespace captoria {

// The two halves of the work, and what their progress counts.
enum class Work {
  Bitmaps,  // cues
  Film,     // KiB
};

// Watches the work and may stop it. Called on the thread that does the work.
class WorkMonitor {
 public:
  virtual ~WorkMonitor() = default;

  // The half that begins now reports to the result and ends with it.
  virtual std::unique_ptr<JobProgress> BeginWork(Work work) = 0;
};

// What came of a conversion.
struct Outcome {
  Result<std::string> film;               // its path; Cancelled if the work was stopped
  Findings findings{};                    // those of the plan first
  bool tools_ended = false;               // the tools ran to their end, well or badly
  bool left_running = false;              // nobody waits for the tools, which are still at work
  std::vector<std::string> last_lines{};  // of the tools, if they made no film
};

// Makes the film. The error of a tool that failed ends with the last lines it wrote. No film exists then, except one
// that existed before and was to be replaced.
Outcome Convert(const ConversionPlan& plan, const std::shared_ptr<FontCollection>& fonts, ScriptRunner& scripts,
                WorkMonitor& monitor);

}  // namespace captoria
