// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/reporter.h"

#include <utility>

namespace captoria {

void Reporter::Tell(Finding finding, const std::string& box_text) {
  if (!HasPerson()) return Note(std::move(finding));
  if (silences_ > 0) return;
  prompts_.ShowMessage(kProgramTitle, box_text.empty() ? Describe(finding) : box_text);
  findings_.push_back(std::move(finding));
}

void Reporter::Note(Finding finding) {
  if (silences_ > 0) return;
  view_.ShowFinding(finding);
  findings_.push_back(std::move(finding));
}

void Reporter::Advise(const std::string& text) {
  if (HasPerson() && silences_ == 0) prompts_.ShowMessage(kProgramTitle, text);
}

Findings Reporter::Take() { return std::exchange(findings_, {}); }

}  // namespace captoria
