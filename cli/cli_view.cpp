// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/cli_view.h"

#include "cli/cli_context.h"
#include "platform/terminal_progress.h"

namespace captoria {

void CliView::ShowFinding(const Finding& finding) {
  if (!quiet_) Complain("warning: " + Describe(finding));
}

std::unique_ptr<JobProgress> CliView::BeginWork(Work work) {
  using Show = TerminalProgress::Show;
  if (quiet_) return std::make_unique<TerminalProgress>("", Show::Nothing);
  if (work == Work::Bitmaps) return std::make_unique<TerminalProgress>("Creating Bitmaps...");
  return std::make_unique<TerminalProgress>("Writing the film:", Show::Percent);
}

}  // namespace captoria
