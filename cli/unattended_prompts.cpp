// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/unattended_prompts.h"

#include "cli/cli_context.h"

namespace captoria {

void UnattendedPrompts::ShowMessage(const std::string&, const std::string& text) { Complain(text); }

bool UnattendedPrompts::AskYesNo(const std::string&, const std::string& question) {
  Complain(question + (yes_ ? " Yes" : " No"));
  return yes_;
}

}  // namespace captoria
