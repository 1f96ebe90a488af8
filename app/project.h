// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the user works on: the open video and the tracks with their cues, styles and placements. A plain value that one
// thread touches: the window's, or the command line's.
#pragma once

#include <cstddef>
#include <string>

#include "app/preferences.h"
#include "pipeline/avi_inspection.h"
#include "subtitles/track_set.h"

namespace captoria {

// The video that subtitles are put beside.
struct OpenVideo {
  std::string AviPath;  // empty until one was opened; set also if the file cannot be read
  captoria::VideoSystem VideoSystem = captoria::VideoSystem::Ntsc;
  StreamTable streams;

  int VideoHeight() const { return HeightOf(VideoSystem); }  // of the frame that subtitles are placed on, in pixels
};

struct Project {
  // One empty track with the style that the settings have for it.
  explicit Project(const Preferences& preferences);

  // Selects the tab "<New>", or the last one if there are eight tracks. A new track begins with its stored style.
  void SelectLastTab(const Preferences& preferences);

  // The list on screen: its number of rows, the cue of a row, and whether the row is selected there.
  std::size_t ShownCount() const;
  SubtitleCue& ShownCue(std::size_t row);
  bool& ShownSelected(std::size_t row);

  TrackSet tracks;
  OpenVideo video;
  std::string current_file;   // the file the last load used
  bool only_outside = false;  // the list on screen is that of the cues beyond the safe viewing area
};

// Writes the settings together with the styles of the open tracks.
Result<void> SaveAll(Preferences& preferences, const Project& project);

// Whether the first track's subtitle file exists: what makes a conversion worth while.
bool HasSubtitles(const Project& project);

// The user says what the frames of the video are, whatever its rate.
void ChooseVideoSystem(Project& project, bool ntsc);

}  // namespace captoria
