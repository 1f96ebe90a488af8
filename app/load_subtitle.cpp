// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/load_subtitle.h"

#include <utility>

#include "app/safe_area_commands.h"
#include "platform/ascii.h"
#include "platform/files.h"
#include "subtitles/subtitle_file.h"

namespace captoria {
namespace {

Result<void> FillTrack(SubtitleTrack& track, const std::string& file, const LoadOptions& options) {
  track.path = file;
  track.cues.clear();
  track.outside.clear();
  track.source = {};
  if (track.IsIdx()) {
    track.cues.push_back(IdxPlaceholder());
    track.outside.push_back(IdxPlaceholder());
    return {};
  }
  auto read = ReadSubtitleFile(file, {.charset = track.style.font.charset, .forced = options.encoding});
  if (!read) return tl::unexpected(read.error());
  track.cues = std::move(read->reading.cues);
  track.source = {read->encoding, read->undecodable, std::move(read->reading.problem)};
  return {};
}

}  // namespace

Result<void> LoadFileToList(Session& session, const std::string& file, const LoadOptions& options) {
  if (Trim(file).empty()) return Failure(ErrorKind::NotFound, "no subtitle file was named");
  if (FolderExists(file)) return Failure(ErrorKind::NotFound, file + ": is a folder, not a subtitle file");
  if (!FileExists(file)) return Failure(ErrorKind::NotFound, file + ": there is no such file");

  session.current_file = file;
  SubtitleTrack& track = session.tracks.Current();
  if (auto filled = FillTrack(track, file, options); !filled) return filled;
  if (track.source.problem && !options.is_batch) {
    session.prompts.ShowMessage(kProgramTitle, DescribeProblem(file, *track.source.problem));
  }
  if (track.IsIdx() || !options.measure) return {};
  const auto outside = CheckSafeArea(session, options.is_batch);
  if (!outside) return tl::unexpected(outside.error());
  if (*outside > 0 && !options.is_batch) TellOutsideCues(session, *outside);
  return {};
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
