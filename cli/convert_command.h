// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli convert VIDEO...: the whole way from videos and their subtitle files to films.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/cli_context.h"

namespace captoria {

struct ConvertArguments {
  std::vector<std::string> videos;
  std::vector<std::string> subtitles;  // of a single video; if empty, those that the settings look for
  std::vector<std::string> settings;   // KEY=VALUE
  std::string commands;                // a command file; if empty, the one in the settings
  bool keep_temp = false;
  bool remove_unknown = false;
  bool dry_run = false;
  bool json = false;
  bool quiet = false;
};

// The options that say how videos are converted.
void AddConvertOptions(CLI::App& command, ConvertArguments& arguments, CliContext& context);

// Converts the videos and shows what was made; returns the exit status.
int RunConvert(const ConvertArguments& arguments, const std::string& data_folder);

void AddConvertCommand(CLI::App& app, CliContext& context);

}  // namespace captoria
