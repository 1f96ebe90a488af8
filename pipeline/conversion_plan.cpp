// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/conversion_plan.h"

#include "pipeline/mux_script_text.h"

namespace captoria {

std::string ProposedResult(const ConversionPlan& plan) {
  return OutputPath(plan.video, plan.replace, [](const std::string&) { return false; });
}

}  // namespace captoria
