// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-cli: the program without a window or display, for servers, scripts and job schedulers.
#include <CLI/CLI.hpp>

#include "cli/batch_command.h"
#include "cli/cli_context.h"
#include "cli/convert_command.h"
#include "cli/cues_command.h"
#include "cli/info_command.h"
#include "cli/render_command.h"

int main(int argc, char** argv) {
  using namespace captoria;
  CLI::App app("Captoria puts text subtitles into DivX files as pictures.", "captoria-cli");
  app.set_version_flag("-V,--version", "Captoria " CAPTORIA_VERSION);
  app.require_subcommand(1);
  app.footer("Exit status: 0 done, 1 failed or stopped half-way, 2 wrong usage, 130 interrupted.");

  CliContext context;
  AddConvertCommand(app, context);
  AddBatchCommand(app, context);
  AddInfoCommand(app, context);
  AddCuesCommand(app, context);
  AddRenderCommand(app, context);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kExitDone : kExitUsage;
  }
  return context.status;
}
