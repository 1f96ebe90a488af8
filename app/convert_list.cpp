// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/convert_list.h"

#include <utility>

#include "app/load_subtitle.h"
#include "app/open_video.h"

namespace captoria {
namespace {

// Takes one film of the list from its video to its end.
class FilmOfList {
 public:
  FilmOfList(Workspace& workspace, const ConversionBackend& backend, const ConvertOptions& options, std::string video)
      : workspace_(workspace), backend_(backend), options_(options) {
    film_.video = std::move(video);
  }

  // The line for the report; empty if the film was made, or stopped by the user.
  std::string Run() {
    const auto start = std::chrono::steady_clock::now();
    (void)workspace_.reporter.Take();
    const char* failure = Steps();
    film_.time = std::chrono::steady_clock::now() - start;
    Describe();
    if (failure == nullptr || Stopped()) return {};
    return failure + ("\"" + film_.video + "\"\r\n");
  }

  bool Stopped() const { return film_.error && film_.error->kind == ErrorKind::Cancelled; }
  const ConvertedFilm& Film() const { return film_; }

 private:
  // The first words of the report's line if a step fails.
  const char* Steps() {
    if (!Open()) return "Error opening file ";
    if (!HasSubtitles(workspace_.project)) {
      Fail({ErrorKind::NotFound, film_.video + ": no subtitle file was found for it"});
      return "Can not find any subtitles for ";
    }
    return Make() ? nullptr : "Convert failed with file ";
  }

  bool Open() {
    std::string opened = film_.video;
    const bool own = !options_.subtitles.empty();
    if (auto result = OpenAnAviFile(workspace_, opened, {.ignore_auto_srt = own}); !result) {
      return Fail(result.error());
    }
    for (const std::string& subtitle : options_.subtitles) {
      workspace_.project.SelectLastTab(workspace_.preferences);
      auto loaded = OpenSubtitleFile(workspace_, subtitle, {.encoding{}, .find_video = false});
      if (!loaded) return Fail(loaded.error());
    }
    return true;
  }

  bool Make() {
    if (options_.dry_run) return Plan();
    const Outcome outcome = MakeFinalDivX(workspace_, backend_, options_.keep_temp);
    if (!outcome.film) return Fail(outcome.film.error());
    film_.status = ConversionStatus::Made;
    film_.result = *outcome.film;
    return true;
  }

  bool Plan() {
    const auto plan = PrepareDivX(workspace_, backend_.ask_for_tool, options_.keep_temp);
    if (!plan) return Fail(plan.error());
    for (const Finding& finding : plan->findings) workspace_.reporter.Note(finding);
    film_.status = ConversionStatus::Planned;
    film_.result = ProposedResult(*plan);
    return true;
  }

  bool Fail(const Error& error) {
    film_.status = ConversionStatus::Failed;
    film_.error = error;
    return false;
  }

  void Describe() {
    film_.findings = workspace_.reporter.Take();
    film_.streams = workspace_.project.video.streams;
    for (const SubtitleTrack& track : workspace_.project.tracks.Open()) {
      if (!track.HasFile()) continue;
      film_.subtitles.push_back({.file = track.path,
                                 .encoding = track.source.encoding,
                                 .cues = track.IsIdx() ? 0 : track.cues.size(),
                                 .style = track.style,
                                 .problem = track.source.problem});
    }
  }

  Workspace& workspace_;
  const ConversionBackend& backend_;
  const ConvertOptions& options_;
  ConvertedFilm film_;
};

void CloseAllTracks(Workspace& workspace) {
  workspace.project.tracks.UnloadAllSrts();
  workspace.view.ShowTracks();
}

}  // namespace

ConvertReport ConvertVideos(Workspace& workspace, const ConversionBackend& backend, std::span<const std::string> videos,
                            const ConvertOptions& options) {
  ConvertReport report;
  for (const std::string& video : videos) {
    if (report.stopped) {
      options.done({.video = video});
      continue;
    }
    CloseAllTracks(workspace);
    options.begin(video);
    FilmOfList film(workspace, backend, options, video);
    report.text += film.Run();
    report.stopped = film.Stopped();
    options.done(film.Film());
  }
  CloseAllTracks(workspace);
  return report;
}

std::string ReportOrAllWell(const std::string& report) { return report.empty() ? "All seems to be ok" : report; }

}  // namespace captoria
