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

void Tell(Session& session, const std::string& text, bool is_batch) {
  is_batch ? session.view.Warn(text) : session.prompts.ShowMessage(kProgramTitle, text);
}

void Inspect(Session& session, bool is_batch) {
  session.video.streams.clear();
  auto inspected = InspectAvi(session.video.AviPath);
  if (!inspected) {
    Tell(session, session.TextFor(messages::kNoFileInfo) + "\r\n" + inspected.error().message, is_batch);
    return;
  }
  session.video.VideoSystem = inspected->system;
  session.video.streams = std::move(inspected->streams);
}

void LoadSubtitle(Session& session, const std::string& file, bool is_batch) {
  for (int i = 0; i < session.settings.LoadSubManyTimes; ++i) {
    session.SelectLastTab();
    const auto loaded = LoadFileToList(session, file, {.is_batch = is_batch, .encoding{}});
    if (loaded) continue;
    Tell(session, loaded.error().message, is_batch);
    return;
  }
}

// The subtitle files in `folder` whose names begin with the video's, in the order of their names.
void LoadSubtitlesOf(Session& session, const std::string& folder, bool is_batch) {
  const std::string name{RemoveExt(GetFileNameOnly(session.video.AviPath))};
  std::vector<std::string> files = ListFiles(folder, name + "*.srt");
  std::ranges::stable_sort(files, {}, [](const std::string& file) { return LowerAscii(std::string_view{file}); });
  for (const std::string& file : files) LoadSubtitle(session, JoinPath(folder, file), is_batch);
}

void LoadSubtitles(Session& session, bool is_batch) {
  const Settings& settings = session.settings;
  if (settings.UnLoadSrt) session.tracks.UnloadAllSrts();
  const std::string& video = session.video.AviPath;
  if (settings.LoadSrtAuto) LoadSubtitlesOf(session, FolderOf(video), is_batch);
  const std::string folder{Trim(settings.LoadSrtAutoFolderText)};
  if (settings.LoadSrtAutoFolder && !folder.empty() && FolderExists(folder)) {
    LoadSubtitlesOf(session, folder, is_batch);
  }
}

}  // namespace

Result<void> OpenAnAviFile(Session& session, std::string& path, const OpenVideoOptions& options) {
  if (session.remembers) {
    if (const auto saved = session.Save(); !saved) Tell(session, saved.error().message, options.is_batch);
  }
  if (path.empty()) {
    const auto chosen =
        session.prompts.AskFileToOpen(kProgramTitle, {{kVideoPatterns, kVideoPatterns}}, session.video.AviPath);
    if (!chosen) return Failure(ErrorKind::Cancelled, "no video was chosen");
    path = *chosen;
  }
  session.video.AviPath = path;
  Inspect(session, options.is_batch);
  if (!options.ignore_auto_srt) LoadSubtitles(session, options.is_batch);
  session.view.ShowVideo();
  if (session.settings.AutoShowAviInfo) session.view.BringUpStreams();
  return {};
}

void ChooseVideoSystem(Session& session, bool ntsc) {
  session.video.VideoSystem = ntsc ? VideoSystem::Ntsc : VideoSystem::Pal;
}

}  // namespace captoria
