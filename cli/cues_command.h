// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli cues: lists the cues of a subtitle file.
#pragma once

#include <CLI/CLI.hpp>

#include "cli/cli_context.h"

namespace captoria {

void AddCuesCommand(CLI::App& app, CliContext& context);

}  // namespace captoria
