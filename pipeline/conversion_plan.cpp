// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/conversion_plan.h"

#include "pipeline/mux_script_text.h"

namespace captoria {

std::string ProposedResult(const ConversionPlan& plan) {
  return OutputPath(plan.video, plan.replace, [](const std::string&) { return false; });
}

std::size_t CountCues(const ConversionPlan& plan) {
  std::size_t count = 0;
  for (const SubtitleTrack& track : plan.tracks) count += track.IsRendered() ? track.cues.size() : 0;
  return count;
}

}  // namespace captoria
