// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Converting a list of films that nobody watches. A film that fails does not stop the others; the failures are listed
// at the end.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/make_divx.h"
#include "app/workspace.h"

namespace captoria {

enum class ConversionStatus {
  Made,
  Failed,
  Planned,  // a dry run: nothing was made
  Skipped,  // the run was stopped before this film
};

// A subtitle file of a film, without its cues.
struct FilmSubtitle {
  std::string file;
  std::string encoding;  // empty for a VobSub index
  std::size_t cues = 0;
  TrackStyle style;
  std::optional<SrtProblem> problem;
};

// What is known of one film at its end.
struct ConvertedFilm {
  std::string video;
  ConversionStatus status = ConversionStatus::Skipped;
  std::string result{};          // path of the film, if it was made or planned
  std::optional<Error> error{};  // if it failed
  Findings findings{};
  std::vector<FilmSubtitle> subtitles{};
  StreamTable streams{};  // of the video
  std::chrono::duration<double> time{};
};

struct ConvertOptions {
  bool keep_temp = false;
  bool dry_run = false;                // only plan
  std::vector<std::string> subtitles;  // for each video, instead of those of its name that the settings look for

  // Called before each video is opened and after it is finished. The order is that of the list.
  std::function<void(const std::string& video)> begin = [](const std::string&) {};
  std::function<void(const ConvertedFilm& film)> done = [](const ConvertedFilm&) {};
};

struct ConvertReport {
  std::string text;  // a line, ending in CR LF, for each film that failed, in their order
  bool stopped = false;
};

// Converts each video. No track is open before a video or at the end; the last video stays open. After a stop, the rest
// of the list is skipped.
ConvertReport ConvertVideos(Workspace& workspace, const ConversionBackend& backend, std::span<const std::string> videos,
                            const ConvertOptions& options);

// What the user is shown: the report, or that there is nothing to report.
std::string ReportOrAllWell(const std::string& report);

}  // namespace captoria
