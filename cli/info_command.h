// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli info VIDEO: the stream table, the video system and the height of its frame.
#pragma once

#include <CLI/CLI.hpp>

#include "cli/cli_context.h"

namespace captoria {

void AddInfoCommand(CLI::App& app, CliContext& context);

}  // namespace captoria
