// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Create DivX": from the open video and tracks to the film.
#pragma once

#include <functional>
#include <memory>

#include "app/locate_tool.h"
#include "app/workspace.h"
#include "base/result.h"
#include "pipeline/conversion.h"
#include "platform/document_opener.h"

namespace captoria {

// Carries out a plan: Convert of pipeline/conversion.h, on whatever thread the caller has for it.
using RunConversion = std::function<Outcome(const ConversionPlan& plan, const std::shared_ptr<FontCollection>& fonts)>;

// What a conversion needs from outside the program.
struct ConversionBackend {
  RunConversion convert;
  DocumentOpener& documents;
  AskForTool ask_for_tool = AskForToolFile;
};

// What the plan will do, from the settings and what is open, as they are now. If nobody watches, the conversion waits
// for the tools and leaves no temporary file, whatever the settings say. Nothing is checked or written.
ConversionPlan MakePlan(const Workspace& workspace, bool keep_temp);

// Checks what is open and asks the user whatever has to be asked, so that the plan can be carried out without the user.
// The reasons why a conversion cannot begin are shown even if nobody watches.
Result<ConversionPlan> PrepareDivX(Workspace& workspace, const AskForTool& ask_for_tool, bool keep_temp);

// Tells a person what came of the plan, and opens the film if the settings say so.
void ReportOutcome(Workspace& workspace, const Outcome& outcome, DocumentOpener& documents);

// All of it (`MakeFinalDivX`, `CreateBat`).
Outcome MakeFinalDivX(Workspace& workspace, const ConversionBackend& backend, bool keep_temp = false);

}  // namespace captoria
