// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/convert_command.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/convert_list.h"
#include "cli/cli_view.h"
#include "cli/cli_workspace.h"
#include "cli/commands_option.h"
#include "cli/film_report.h"
#include "cli/unattended_prompts.h"
#include "platform/files.h"
#include "platform/interrupt.h"

namespace captoria {
namespace {

// The tools run in another folder, so paths must not be relative.
std::vector<std::string> AllAbsolute(const std::vector<std::string>& paths) {
  std::vector<std::string> absolute(paths.size());
  std::ranges::transform(paths, absolute.begin(), AbsolutePath);
  return absolute;
}

// A command line opens no windows and waits for the tools.
Result<void> ApplySettings(Preferences& preferences, const ConvertArguments& arguments) {
  Settings& settings = preferences.settings;
  settings.ShowDos = settings.ShowDosPause = settings.RunDivX = settings.ReplaceDivX = false;
  settings.WaitToEndDos = true;
  if (auto applied = ApplyAssignments(preferences, arguments.settings); !applied) return applied;
  return UseCommands(preferences, arguments.commands);
}

// The lines of the report end as a terminal expects.
void ShowReport(std::string report) {
  std::erase(report, '\r');
  std::fputs(report.c_str(), stderr);
}

// Shows each film as it ends, so that a reader of a long run need not wait.
class FilmOutput {
 public:
  explicit FilmOutput(bool json) : json_(json) {}

  void Show(const ConvertedFilm& film) {
    const bool failed = film.status == ConversionStatus::Failed;
    all_well_ = all_well_ && !failed;
    if (failed) Complain(film.error->message);
    if (json_) {
      all_well_ = Print(FilmAsJson(film)) && all_well_;
    } else if (film.status == ConversionStatus::Made) {
      all_well_ = Print(film.result + "\n") && all_well_;
    } else if (film.status == ConversionStatus::Planned) {
      all_well_ = Print(PlanAsText(film)) && all_well_;
    }
  }

  bool AllWell() const { return all_well_; }

 private:
  bool json_;
  bool all_well_ = true;
};

}  // namespace

int RunConvert(const ConvertArguments& arguments, const std::string& data_folder) {
  const Interrupt interrupt;
  CliView view;
  if (arguments.quiet) view.BeQuiet();
  UnattendedPrompts prompts(arguments.remove_unknown);
  Preferences preferences = CliPreferences(data_folder, prompts);
  if (auto applied = ApplySettings(preferences, arguments); !applied) {
    Complain(applied.error().message);
    return kExitUsage;
  }
  Workspace workspace(CliFolders(data_folder), std::move(preferences), prompts, view, Attendance::Nobody);
  CaptoriaRun scripts(workspace.folders.executable, ProcessEnvironment());
  DesktopOpener documents;
  const ConversionBackend backend{
      .convert = [&](const ConversionPlan& plan, const auto& fonts) { return Convert(plan, fonts, scripts, view); },
      .documents = documents};
  FilmOutput output(arguments.json);
  const ConvertReport report = ConvertVideos(workspace, backend, AllAbsolute(arguments.videos),
                                             {.keep_temp = arguments.keep_temp,
                                              .dry_run = arguments.dry_run,
                                              .subtitles = AllAbsolute(arguments.subtitles),
                                              .done = [&](const ConvertedFilm& film) { output.Show(film); }});
  ShowReport(report.text);
  if (report.stopped || Interrupt::Requested()) return kExitInterrupted;
  return output.AllWell() ? kExitDone : kExitFailed;
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
  command.add_flag("--dry-run", arguments.dry_run, "Show what would be made, and make nothing");
  command.add_flag("--json", arguments.json, "Show a line of JSON for each film as it ends");
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
