// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/render_command.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

#include "app/load_subtitle.h"
#include "app/workspace.h"
#include "base/path_text.h"
#include "base/utf8.h"
#include "cli/cli_workspace.h"
#include "cli/commands_option.h"
#include "cli/unattended_prompts.h"
#include "platform/files.h"
#include "platform/terminal_progress.h"
#include "render/cue_run.h"

namespace captoria {
namespace {

using Json = nlohmann::ordered_json;

struct RenderOptions {
  std::string file;
  std::string out;
  std::vector<std::string> settings;
  std::string commands;
  std::size_t first = 1;
  std::size_t last = std::numeric_limits<std::size_t>::max();
  unsigned threads = 0;
  bool json = false;
};

// What was drawn, for programs.
bool ListAsJson(const RenderOptions& options, const CueRun& batch, const RenderedRun& rendered) {
  Json bitmaps = Json::array();
  for (std::size_t i = 0; i < batch.cues.size(); ++i) {
    bitmaps.push_back({{"number", options.first + i},
                       {"file", batch.path_of(i)},
                       {"width", rendered.sizes[i].width},
                       {"height", rendered.sizes[i].height}});
  }
  Json missing = Json::array();
  for (const char32_t character : rendered.fonts.missing) missing.push_back(CodePointName(character));
  const Json all{{"file", options.file}, {"bitmaps", bitmaps}, {"fonts", rendered.fonts.fonts}, {"missing", missing}};
  return Print(all.dump(1, ' ', false, Json::error_handler_t::replace) + "\n");
}

// What was drawn, for people.
bool ListAsText(const RenderOptions& options, const RenderedRun& rendered) {
  std::string text = std::to_string(rendered.sizes.size()) + " bitmap(s) written to " + options.out + "\n";
  for (const auto& [chosen, used] : rendered.fonts.fonts) {
    text += "font \"" + chosen + "\" drawn with";
    for (const std::string& name : used) text += (name == *used.begin() ? " " : ", ") + name;
    text += "\n";
  }
  if (!rendered.fonts.missing.empty()) {
    text += "no installed font has";
    for (const char32_t character : rendered.fonts.missing) text += " " + CodePointName(character);
    text += "\n";
  }
  return Print(text);
}

Result<RenderedRun> Render(Workspace& workspace, const RenderOptions& options, CueRun& batch) {
  if (auto loaded = LoadFileToList(workspace, options.file, {.encoding{}, .find_video = false}); !loaded) {
    return tl::unexpected(loaded.error());
  }
  const SubtitleTrack& track = workspace.project.tracks.Current();
  if (track.IsIdx()) return Failure(ErrorKind::Unsupported, options.file + ": holds pictures already");
  if (auto created = CreateFolder(options.out); !created) return tl::unexpected(created.error());

  const std::size_t end = std::min(options.last, track.cues.size()), begin = std::min(options.first - 1, end);
  batch.cues = std::span{track.cues}.subspan(begin, end - begin);
  batch.style = track.style;
  batch.frame = FrameOf(workspace.preferences.settings);
  batch.path_of = [&, begin](std::size_t i) {
    return JoinPath(options.out + "/", BitmapFileName(workspace.project.tracks.CurrentIndex(), begin + i + 1));
  };
  const auto fonts = workspace.canvas.Fonts();
  if (!fonts) return tl::unexpected(fonts.error());
  TerminalProgress progress("Creating Bitmaps...");
  return RenderCues(*fonts, batch, options.threads, progress);
}

int RunRender(const RenderOptions& options, const std::string& data_folder) {
  UnattendedPrompts prompts(false);
  CliView view;
  Preferences preferences = CliPreferences(data_folder, prompts);
  auto applied = ApplyAssignments(preferences, options.settings);
  if (applied) applied = UseCommands(preferences, options.commands);
  if (!applied) {
    Complain(applied.error().message);
    return kExitUsage;
  }
  Workspace workspace(CliFolders(data_folder), std::move(preferences), prompts, view, Attendance::Nobody);
  CueRun batch;
  const auto rendered = Render(workspace, options, batch);
  if (!rendered) {
    Complain(rendered.error().message);
    return rendered.error().kind == ErrorKind::Cancelled ? kExitInterrupted : kExitFailed;
  }
  const bool whole = !workspace.project.tracks.Current().source.problem;  // if not, the view has shown why
  const bool listed = options.json ? ListAsJson(options, batch, *rendered) : ListAsText(options, *rendered);
  return listed && whole ? kExitDone : kExitFailed;
}

}  // namespace

void AddRenderCommand(CLI::App& app, CliContext& context) {
  auto options = std::make_shared<RenderOptions>();
  options->threads = std::max(1U, std::thread::hardware_concurrency());
  CLI::App* command = app.add_subcommand("render", "Write the bitmaps of a subtitle file, as a conversion draws them");
  command->add_option("subtitle", options->file, "The subtitle file")->required()->type_name("FILE");
  command->add_option("--out", options->out, "The folder for the bitmaps; created if it does not exist")
      ->required()
      ->type_name("DIR");
  command->add_option("--set", options->settings, "A setting to use instead of the stored one, as VertPos0=60")
      ->type_name("KEY=VALUE")
      ->take_all()
      ->expected(1);
  AddCommandsOption(*command, options->commands);
  command->add_option("--first", options->first, "Number of the first cue")->check(CLI::PositiveNumber)->type_name("N");
  command->add_option("--last", options->last, "Number of the last cue")->check(CLI::PositiveNumber)->type_name("M");
  command->add_option("--threads", options->threads, "Threads to draw with; the bitmaps do not depend on it")
      ->check(CLI::Range(1U, 256U))
      ->type_name("N");
  command->add_flag("--json", options->json, "Show what was drawn as JSON");
  command->add_option("--data", context.data_folder, "The folder of the settings, instead of the program's own")
      ->type_name("DIR");
  command->callback([options, &context] { context.status = RunRender(*options, context.data_folder); });
}

}  // namespace captoria
