// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli render: the bitmaps of a subtitle file, as a conversion would draw them.
#pragma once

#include <CLI/CLI.hpp>

#include "cli/cli_context.h"

namespace captoria {

void AddRenderCommand(CLI::App& app, CliContext& context);

}  // namespace captoria
