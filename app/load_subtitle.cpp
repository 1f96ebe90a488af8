// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/load_subtitle.h"

#include <optional>
#include <utility>

#include "app/open_video.h"
#include "app/run_commands.h"
#include "app/safe_area_commands.h"
#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/files.h"
#include "subtitles/subtitle_file.h"

namespace captoria {
namespace {

Result<void> FillTrack(SubtitleTrack& track, const std::string& file, const LoadOptions& options) {
  CueSource source;
  std::vector<SubtitleCue> cues;
  std::vector<OutsideRow> outside;
  if (IsIdxFile(file)) {
    cues.push_back(IdxPlaceholder());
    outside.push_back({});
  } else {
    auto read = ReadSubtitleFile(file, {.charset = track.style.font.charset, .forced = options.encoding});
    if (!read) return tl::unexpected(read.error());
    cues = std::move(read->reading.cues);
    source = {read->encoding, read->undecodable, std::move(read->reading.problem)};
  }
  track.path = file;
  track.cues = std::move(cues);
  track.outside = std::move(outside);
  track.source = std::move(source);
  return {};
}

// Opens the video of the subtitle's name, if the settings say to look for it.
void FindVideo(Workspace& workspace, const std::string& file) {
  const std::string name = std::string{RemoveExt(GetFileNameOnly(file))} + ".avi";
  const auto open_in = [&](const std::string& folder) {
    std::string path = JoinPath(folder, name);
    if (!workspace.project.video.AviPath.empty() || !FileExists(path)) return;
    (void)OpenAnAviFile(workspace, path, {.ignore_auto_srt = true});
  };
  const Settings& settings = workspace.preferences.settings;
  if (settings.LoadAviAuto) open_in(FolderOf(file));
  const std::string folder{Trim(settings.LoadAviAutoFolderText)};
  if (settings.LoadAviAutoFolder && !folder.empty() && FolderExists(folder)) open_in(folder);
}

void TellProblems(Workspace& workspace, const std::string& file, const CueSource& source) {
  if (source.undecodable > 0) {
    workspace.reporter.Note({.kind = FindingKind::UndecodableBytes,
                             .file = file,
                             .message = std::to_string(source.undecodable) + " bytes mean nothing in " +
                                        source.encoding + " and are shown as U+FFFD"});
  }
  if (!source.problem) return;
  workspace.reporter.Tell({.kind = FindingKind::ReadingStopped,
                           .file = file,
                           .line = source.problem->line,
                           .message = source.problem->message});
}

Result<void> CheckCues(Workspace& workspace) {
  const auto outside = CheckSafeArea(workspace);
  if (!outside) return tl::unexpected(outside.error());
  if (*outside > 0) TellOutsideCues(workspace, *outside);
  return {};
}

// Runs the command file that the settings name for every file that is loaded.
void RunCommands(Workspace& workspace) {
  const std::string path = workspace.preferences.settings.BatchToRun;
  if (!Trim(path).empty() && FileExists(path)) RunBatch(workspace, path);
}

}  // namespace

Result<void> LoadFileToList(Workspace& workspace, const std::string& file, const LoadOptions& options) {
  if (Trim(file).empty()) return Failure(ErrorKind::NotFound, "no subtitle file was named");
  if (FolderExists(file)) return Failure(ErrorKind::NotFound, file + ": is a folder, not a subtitle file");
  if (!FileExists(file)) return Failure(ErrorKind::NotFound, file + ": there is no such file");

  SubtitleTrack& track = workspace.project.tracks.Current();
  if (auto filled = FillTrack(track, file, options); !filled) return filled;
  workspace.project.current_file = file;
  if (options.find_video) FindVideo(workspace, file);
  TellProblems(workspace, file, track.source);
  Result<void> checked;
  if (!track.IsIdx() && options.measure) checked = CheckCues(workspace);
  workspace.view.ShowTracks();
  if (!track.IsIdx() && checked) RunCommands(workspace);
  return checked;
}

Result<void> OpenSubtitleFile(Workspace& workspace, const std::string& file, const LoadOptions& options) {
  auto loaded = LoadFileToList(workspace, file, options);
  const int times = IsIdxFile(file) ? 1 : workspace.preferences.settings.LoadSubManyTimes;
  const Reporter::Silence silence(workspace.reporter);
  for (int i = 1; i < times && loaded; ++i) {
    workspace.project.SelectLastTab(workspace.preferences);
    loaded = LoadFileToList(workspace, file, options);
  }
  return loaded;
}

}  // namespace captoria
