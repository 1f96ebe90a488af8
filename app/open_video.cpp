// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/open_video.h"

#include <algorithm>

#include "app/load_subtitle.h"
#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

void Inspect(Workspace& workspace) {
  OpenVideo& video = workspace.project.video;
  video.streams.clear();
  auto inspected = InspectAvi(video.AviPath);
  if (!inspected) {
    const std::string& reason = inspected.error().message;
    workspace.reporter.Tell(FindingAbout(FindingKind::DamagedVideo, video.AviPath, reason),
                            workspace.language.TextOf(messages::kNoFileInfo) + "\r\n" + reason);
    return;
  }
  video.VideoSystem = inspected->system;
  video.streams = std::move(inspected->streams);
}

// The subtitle files in `folder` whose names begin with the video's, in the order of their names.
void LoadSubtitlesOf(Workspace& workspace, const std::string& folder) {
  const std::string name{RemoveExt(GetFileNameOnly(workspace.project.video.AviPath))};
  std::vector<std::string> files = ListFiles(folder, name + "*.srt");
  std::ranges::stable_sort(files, {}, [](const std::string& file) { return LowerAscii(std::string_view{file}); });
  for (const std::string& file : files) {
    workspace.project.SelectLastTab(workspace.preferences);
    const std::string path = JoinPath(folder, file);
    const auto loaded = OpenSubtitleFile(workspace, path, {});
    if (!loaded) workspace.reporter.Tell(FindingAbout(FindingKind::ReadingStopped, path, loaded.error().message));
  }
}

void LoadSubtitles(Workspace& workspace) {
  const Settings& settings = workspace.preferences.settings;
  if (settings.UnLoadSrt) workspace.project.tracks.UnloadAllSrts();
  if (settings.LoadSrtAuto) LoadSubtitlesOf(workspace, FolderOf(workspace.project.video.AviPath));
  const std::string folder{Trim(settings.LoadSrtAutoFolderText)};
  if (settings.LoadSrtAutoFolder && !folder.empty() && FolderExists(folder)) LoadSubtitlesOf(workspace, folder);
}

}  // namespace

Result<void> OpenAnAviFile(Workspace& workspace, std::string& path, const OpenVideoOptions& options) {
  if (const auto saved = SaveAll(workspace.preferences, workspace.project); !saved) {
    workspace.reporter.Tell({.kind = FindingKind::NotSaved, .message = saved.error().message});
  }
  OpenVideo& video = workspace.project.video;
  if (path.empty()) {
    const auto chosen =
        workspace.prompts.AskFileToOpen(kProgramTitle, {{kVideoPatterns, kVideoPatterns}}, video.AviPath);
    if (!chosen) return Failure(ErrorKind::Cancelled, "no video was chosen");
    path = *chosen;
  }
  video.AviPath = path;
  Inspect(workspace);
  if (!options.ignore_auto_srt) LoadSubtitles(workspace);
  workspace.view.ShowVideo();
  if (workspace.preferences.settings.AutoShowAviInfo) workspace.view.BringUpStreams();
  return {};
}

}  // namespace captoria
