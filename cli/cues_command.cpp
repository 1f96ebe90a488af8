// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/cues_command.h"

#include <memory>
#include <string>
#include <utility>

#include "app/load_subtitle.h"
#include "app/workspace.h"
#include "base/text_encoding.h"
#include "cli/cli_workspace.h"
#include "cli/commands_option.h"
#include "cli/cue_listing.h"
#include "cli/unattended_prompts.h"

namespace captoria {
namespace {

struct CuesOptions {
  std::string file;
  std::string encoding;
  std::string commands;
  bool json = false;
};

int RunCues(const CuesOptions& options, const std::string& data_folder) {
  UnattendedPrompts prompts(false);
  CliView view;
  Preferences preferences = CliPreferences(data_folder, prompts);
  if (auto used = UseCommands(preferences, options.commands); !used) {
    Complain(used.error().message);
    return kExitUsage;
  }
  Workspace workspace(CliFolders(data_folder), std::move(preferences), prompts, view, Attendance::Nobody);

  const auto loaded = LoadFileToList(workspace, options.file,
                                     {.encoding = options.encoding, .measure = options.json, .find_video = false});
  if (!loaded) {
    Complain(loaded.error().message);
    return kExitFailed;
  }
  const SubtitleTrack& track = workspace.project.tracks.Current();
  const bool listed = options.json ? ListCuesAsJson(track, Print) : ListCuesAsTable(track, Print);
  return listed && !track.source.problem ? kExitDone : kExitFailed;
}

}  // namespace

void AddCuesCommand(CLI::App& app, CliContext& context) {
  auto options = std::make_shared<CuesOptions>();
  CLI::App* command = app.add_subcommand("cues", "List the cues of a subtitle file (.srt, or .idx as one row)");
  command->add_option("file", options->file, "The subtitle file")->required()->type_name("FILE");
  command->add_flag("--json", options->json, "List as JSON");
  command->add_option("--encoding", options->encoding, "The file's encoding, instead of finding it out")
      ->type_name("NAME")
      ->check(CLI::Validator([](std::string& name) { return IsKnownEncoding(name) ? "" : "no such encoding: " + name; },
                             "", "encoding"));
  AddCommandsOption(*command, options->commands);
  command->add_option("--data", context.data_folder, "The folder of the settings, instead of the program's own")
      ->type_name("DIR");
  command->callback([options, &context] { context.status = RunCues(*options, context.data_folder); });
}

}  // namespace captoria
