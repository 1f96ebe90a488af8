// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/load_subtitle.h"

#include <utility>

#include "app/batch_commands.h"
#include "app/open_video.h"
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

// The video of the subtitle's name, where the settings say to look for it.
void FindVideo(Session& session, const std::string& file, const LoadOptions& options) {
  const std::string name = std::string{RemoveExt(GetFileNameOnly(file))} + ".avi";
  const auto open_in = [&](const std::string& folder) {
    std::string path = JoinPath(folder, name);
    if (!session.video.AviPath.empty() || !FileExists(path)) return;
    (void)OpenAnAviFile(session, path, {.ignore_auto_srt = true, .is_batch = options.is_batch});
  };
  const Settings& settings = session.settings;
  if (settings.LoadAviAuto) open_in(FolderOf(file));
  const std::string folder{Trim(settings.LoadAviAutoFolderText)};
  if (settings.LoadAviAutoFolder && !folder.empty() && FolderExists(folder)) open_in(folder);
}

Result<void> CheckCues(Session& session, const LoadOptions& options) {
  const auto outside = CheckSafeArea(session, options.is_batch);
  if (!outside) return tl::unexpected(outside.error());
  if (*outside > 0 && !options.is_batch) TellOutsideCues(session, *outside);
  return {};
}

// The command file of the settings, which is to be run on every file that is loaded.
void RunCommands(Session& session, const LoadOptions& options) {
  const std::string path = session.settings.BatchToRun;
  if (!Trim(path).empty() && FileExists(path)) RunBatch(session, path, options.is_batch);
}

}  // namespace

Result<void> LoadFileToList(Session& session, const std::string& file, const LoadOptions& options) {
  if (Trim(file).empty()) return Failure(ErrorKind::NotFound, "no subtitle file was named");
  if (FolderExists(file)) return Failure(ErrorKind::NotFound, file + ": is a folder, not a subtitle file");
  if (!FileExists(file)) return Failure(ErrorKind::NotFound, file + ": there is no such file");

  SubtitleTrack& track = session.tracks.Current();
  if (auto filled = FillTrack(track, file, options); !filled) return filled;
  session.current_file = file;
  if (options.find_video) FindVideo(session, file, options);
  if (track.source.problem) {
    const std::string text = DescribeProblem(file, *track.source.problem);
    options.is_batch ? session.view.Warn(text) : session.prompts.ShowMessage(kProgramTitle, text);
  }
  Result<void> checked;
  if (!track.IsIdx() && options.measure) checked = CheckCues(session, options);
  session.view.ShowTracks();
  if (!track.IsIdx() && checked) RunCommands(session, options);
  return checked;
}

Result<void> OpenSubtitleFile(Session& session, const std::string& file, const LoadOptions& options) {
  const int times = IsIdxFile(file) ? 1 : session.settings.LoadSubManyTimes;
  LoadOptions quiet = options;
  for (int i = 1; i < times; ++i) {
    if (auto loaded = LoadFileToList(session, file, quiet); !loaded) return loaded;
    session.SelectLastTab();
    quiet.is_batch = true;  // one word about a fault is enough
  }
  return LoadFileToList(session, file, quiet);
}

}  // namespace captoria
