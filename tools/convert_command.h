// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli convert VIDEO...: the whole way from videos and their subtitle files to films.
#pragma once

#include <CLI/CLI.hpp>

#include "tools/cli_context.h"

namespace captoria {

void AddConvertCommand(CLI::App& app, CliContext& context);

}  // namespace captoria
