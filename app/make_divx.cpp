// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/make_divx.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/files.h"

namespace captoria {
namespace {

// Shows the user why nothing begins, and returns it to the caller.
tl::unexpected<Error> Refuse(Workspace& workspace, ErrorKind kind, const Message& message, const std::string& reason) {
  workspace.prompts.ShowMessage(kProgramTitle, workspace.language.TextOf(message));
  return Failure(kind, reason);
}

// Asked once, before any work. The film cannot contain streams of an unknown type.
Result<void> AskToRemoveUnknown(Workspace& workspace) {
  if (std::ranges::all_of(workspace.project.video.streams, IsKept)) return {};
  if (workspace.prompts.AskYesNo(kProgramTitle, workspace.language.TextOf(messages::kUnknownStreams))) return {};
  return Failure(ErrorKind::Unsupported,
                 workspace.project.video.AviPath + ": has streams of an unknown kind, which would have to be removed");
}

Result<void> CheckInputs(Workspace& workspace) {
  const OpenVideo& video = workspace.project.video;
  if (video.AviPath.empty() || !FileExists(video.AviPath)) {
    return Refuse(workspace, ErrorKind::NotFound, messages::kLoadAvi,
                  video.AviPath.empty() ? "no video is open" : video.AviPath + ": there is no such file");
  }
  // Without subtitles, removing unknown streams is still worth while.
  if (!HasSubtitles(workspace.project) && std::ranges::all_of(video.streams, IsKept)) {
    return Refuse(workspace, ErrorKind::NotFound, messages::kLoadSubtitle,
                  video.AviPath + ": no subtitle file is loaded for it");
  }
  return AskToRemoveUnknown(workspace);
}

ShowStyle ShowStyleOf(const Settings& settings) {
  constexpr ShowStyle kStyles[]{ShowStyle::Normal, ShowStyle::Minimized, ShowStyle::Maximized, ShowStyle::NormalNoFocus,
                                ShowStyle::MinimizedNoFocus};
  if (!settings.ShowDos) return ShowStyle::Hidden;
  const auto index = static_cast<std::size_t>(settings.ShowDosCombo);
  return index < std::size(kStyles) ? kStyles[index] : ShowStyle::Normal;
}

CleanUp CleanUpOf(const Settings& settings, bool attended, bool keep_temp) {
  if (keep_temp) return {.everything = false};
  return {
      .everything = !attended || settings.deleteTemp, .bitmaps = settings.deleteBmp, .others = settings.deleteOther};
}

Findings FindingsOf(const OpenVideo& video) {
  Findings findings;
  for (std::size_t i = 0; i < video.streams.size(); ++i) {
    if (IsKept(video.streams[i])) continue;
    findings.push_back({.kind = FindingKind::StreamLeftOut,
                        .file = video.AviPath,
                        .message = "stream " + std::to_string(i) + " is of an unknown kind and is left out"});
  }
  return findings;
}

}  // namespace

ConversionPlan MakePlan(const Workspace& workspace, bool keep_temp) {
  const Settings& settings = workspace.preferences.settings;
  const Project& project = workspace.project;
  const bool attended = workspace.reporter.HasPerson();
  const bool forced = settings.ForceVideoHeight > 0;
  return {.video = project.video.AviPath,
          .streams = project.video.streams,
          .tracks{project.tracks.Open().begin(), project.tracks.Open().end()},
          .replace = settings.ReplaceDivX,
          .form = settings.UseBmpToXSub ? ListForm::Converter : ListForm::Mux,
          .bitmap = FrameOf(settings),
          .frame_height = forced && !settings.UseBmpToXSub ? settings.ForceVideoHeight : project.video.VideoHeight(),
          .system = forced ? VideoSystem::Pal : project.video.VideoSystem,
          .pal_mode1 = settings.UsePalMode1,
          .program_folder = workspace.folders.data,
          .muxer = PlacesOf(Tool::DivXMux, settings, workspace.folders),
          .converter = PlacesOf(Tool::BmpToXSub, settings, workspace.folders),
          .threads = std::max(1U, std::thread::hardware_concurrency()),
          .show = ShowStyleOf(settings),
          .pause = attended && settings.ShowDos && settings.ShowDosPause,
          .waits = !attended || settings.WaitToEndDos,
          .clean_up = CleanUpOf(settings, attended, keep_temp),
          .findings = FindingsOf(project.video)};
}

Result<ConversionPlan> PrepareDivX(Workspace& workspace, const AskForTool& ask_for_tool, bool keep_temp) {
  if (auto checked = CheckInputs(workspace); !checked) return tl::unexpected(checked.error());
  if (auto located = LocateTools(workspace, ask_for_tool); !located) return tl::unexpected(located.error());
  return MakePlan(workspace, keep_temp);
}

void ReportOutcome(Workspace& workspace, const Outcome& outcome, DocumentOpener& documents) {
  for (const Finding& finding : outcome.findings) workspace.reporter.Note(finding);
  if (!workspace.reporter.HasPerson() || !outcome.tools_ended) return;
  std::string text = workspace.language.TextOf(outcome.film ? messages::kFinished : messages::kFailed);
  for (const std::string& line : outcome.last_lines) text += "\n" + line;
  workspace.reporter.Advise(text);
  if (!outcome.film || !workspace.preferences.settings.RunDivX) return;
  const auto opened = documents.Open(*outcome.film);
  if (!opened) workspace.reporter.Note({.kind = FindingKind::ToolMessage, .message = opened.error().message});
}

Outcome MakeFinalDivX(Workspace& workspace, const ConversionBackend& backend, bool keep_temp) {
  const auto plan = PrepareDivX(workspace, backend.ask_for_tool, keep_temp);
  if (!plan) return {.film = tl::unexpected(plan.error())};
  const auto fonts = workspace.canvas.Fonts();
  if (!fonts) return {.film = tl::unexpected(fonts.error())};
  Outcome outcome = backend.convert(*plan, *fonts);
  ReportOutcome(workspace, outcome, backend.documents);
  return outcome;
}

}  // namespace captoria
