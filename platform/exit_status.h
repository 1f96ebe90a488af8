// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a shell sees of each of our programs.
#pragma once

namespace captoria {

enum ExitStatus {
  kExitDone = 0,
  kExitFailed = 1,  // the work failed or stopped half-way; standard error says why
  kExitUsage = 2,
  kExitInterrupted = 130,
};

}  // namespace captoria
