// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Runs that nobody watches: a list of videos one after the other, and the run that a file manager starts with "/AUTO".
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/make_divx.h"
#include "app/session.h"

namespace captoria {

struct ConvertedVideo {
  std::string video;
  std::string output;  // empty when none was made
  std::string error;   // then
};

struct ConvertOptions {
  bool keep_temp = false;
  std::vector<std::string> subtitles;  // for each video, instead of those of its name that the settings look for

  // Told of each video before it is opened, and when it is done.
  std::function<void(const std::string&)> begin = [](const std::string&) {};
  std::function<void(const ConvertedVideo&)> done = [](const ConvertedVideo&) {};
};

struct ConvertReport {
  std::string text;  // automation/batch_conversion.h
  bool stopped = false;
};

// Converts each video. No track is open before a video or at the end; the last video stays open.
ConvertReport ConvertVideos(Session& session, const Outside& outside, std::span<const std::string> videos,
                            const ConvertOptions& options);

// The argument string of the window program.
struct CommandLine {
  bool unattended = false;  // it holds "/AUTO", in any case; inside of a path with other slashes it is none
  std::string path;         // the rest, without the quotation marks around it
};
CommandLine ParseCommandLine(std::string_view arguments);

// The unattended run: opens the video, makes the film when there are subtitles, says so when there are none, and saves
// the settings.
Result<MadeDivX> RunUnattended(Session& session, const Outside& outside, const std::string& path);

}  // namespace captoria
