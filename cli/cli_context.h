// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the commands of captoria-cli share: the options that all of them have, and the exit status.
#pragma once

#include <string>
#include <string_view>

#include "platform/exit_status.h"

namespace captoria {

struct CliContext {
  std::string data_folder;  // empty: the program's own
  int status = kExitDone;   // set by the command that ran
};

// Writes "captoria-cli: " and `message` as one line to standard error.
void Complain(std::string_view message);

// Writes to standard output; false, after a complaint, if that fails (output redirected to a full disk).
bool Print(std::string_view text);

}  // namespace captoria
