// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/convert_command.h"

#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "app/batch_convert.h"
#include "cli/cli_session.h"
#include "cli/cli_view.h"
#include "cli/commands_option.h"
#include "cli/unattended_prompts.h"
#include "platform/files.h"
#include "platform/interrupt.h"
#include "settings/key_table.h"

namespace captoria {
namespace {

using Json = nlohmann::ordered_json;

// The tools work in a folder of their own, so names cannot stay relative to ours.
std::vector<std::string> AllAbsolute(const std::vector<std::string>& paths) {
  std::vector<std::string> absolute(paths.size());
  std::ranges::transform(paths, absolute.begin(), AbsolutePath);
  return absolute;
}

// Nobody sits before a command line's windows.
Result<void> ApplySettings(Session& session, const ConvertArguments& arguments) {
  session.remembers = false;
  const std::pair<std::string_view, std::string_view> defaults[]{{keys::kShowDos, "0"},
                                                                 {keys::kShowDosPause, "0"},
                                                                 {keys::kWaitToEndDos, "-1"},
                                                                 {keys::kRunDivX, "0"},
                                                                 {keys::kReplaceDivX, "0"}};
  for (const auto& [key, value] : defaults) {
    if (auto applied = session.Override(key, value); !applied) return applied;
  }
  if (auto applied = ApplyAssignments(session, arguments.settings); !applied) return applied;
  return UseCommands(session, arguments.commands);
}

// The report's lines as lines of a terminal.
void TellReport(std::string report) {
  std::erase(report, '\r');
  std::fputs(report.c_str(), stderr);
}

Json AsJson(const ConvertedVideo& video) {
  const bool made = !video.output.empty();
  return {{"video", video.video},
          {"output", made ? Json(video.output) : Json(nullptr)},
          {"error", made ? Json(nullptr) : Json(video.error)}};
}

}  // namespace

int RunConvert(const ConvertArguments& arguments, const std::string& data_folder) {
  const Interrupt interrupt;
  CliView view;
  if (arguments.quiet) view.BeQuiet();
  UnattendedPrompts prompts(arguments.remove_unknown);
  Session session(CliFolders(data_folder), prompts, view);
  if (auto applied = ApplySettings(session, arguments); !applied) {
    Complain(applied.error().message);
    return kExitUsage;
  }

  Json converted = Json::array();
  bool all_made = true, printed = true;
  const auto done = [&](const ConvertedVideo& video) {
    all_made = all_made && !video.output.empty();
    if (arguments.json) converted.push_back(AsJson(video));
    if (video.output.empty()) Complain(video.error);
    if (!video.output.empty() && !arguments.json) printed = Print(video.output + "\n") && printed;
  };
  CaptoriaRun scripts(session.folders.executable, ProcessEnvironment());
  DesktopOpener documents;
  const ConvertReport report =
      ConvertVideos(session, {.scripts = scripts, .documents = documents}, AllAbsolute(arguments.videos),
                    {.keep_temp = arguments.keep_temp, .subtitles = AllAbsolute(arguments.subtitles), .done = done});
  if (arguments.json) {
    printed = Print(converted.dump(1, ' ', false, Json::error_handler_t::replace) + "\n");
  }
  TellReport(report.text);
  if (report.stopped || Interrupt::Requested()) return kExitInterrupted;
  return all_made && printed ? kExitDone : kExitFailed;
}

void AddConvertOptions(CLI::App& command, ConvertArguments& arguments, CliContext& context) {
  command.add_option("--set", arguments.settings, "A setting to use instead of the stored one, as VertPos0=60")
      ->type_name("KEY=VALUE")
      ->take_all()
      ->expected(1);
  AddCommandsOption(command, arguments.commands);
  command.add_flag("--remove-unknown", arguments.remove_unknown,
                   "Leave streams of an unknown kind out; without this, a video that has any is not converted");
  command.add_flag("--keep-temp", arguments.keep_temp,
                   "Keep bitmaps, lists and the script (in tmp of the data folder)");
  command.add_flag("--json", arguments.json, "Tell what was made as JSON");
  command.add_flag("--quiet", arguments.quiet, "Show no progress and no warnings");
  command.add_option("--data", context.data_folder, "The folder of the settings, instead of the program's own")
      ->type_name("DIR");
}

void AddConvertCommand(CLI::App& app, CliContext& context) {
  auto arguments = std::make_shared<ConvertArguments>();
  CLI::App* command = app.add_subcommand("convert", "Make a .divx of each video and its subtitle files");
  command->add_option("video", arguments->videos, "AVI or DivX files")->required()->type_name("VIDEO...");
  command
      ->add_option("--subtitle", arguments->subtitles,
                   "A subtitle file (.srt or .idx) for a single video; otherwise those of its name that the settings "
                   "look for")
      ->type_name("FILE")
      ->take_all()
      ->expected(1);
  AddConvertOptions(*command, *arguments, context);
  command->callback([arguments, &context] {
    const bool several = arguments->videos.size() > 1;
    if (several && !arguments->subtitles.empty()) throw CLI::ValidationError("--subtitle", "goes with a single video");
    if (arguments->subtitles.size() > kMostTracks) {
      throw CLI::ValidationError("--subtitle", "a film has at most " + std::to_string(kMostTracks) + " of them");
    }
    context.status = RunConvert(*arguments, context.data_folder);
  });
}

}  // namespace captoria
