// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli batch LIST: converts the videos that a text file lists.
#pragma once

#include <CLI/CLI.hpp>

#include "cli/cli_context.h"

namespace captoria {

void AddBatchCommand(CLI::App& app, CliContext& context);

}  // namespace captoria
