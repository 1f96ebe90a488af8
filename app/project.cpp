// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/project.h"

#include <utility>
#include <vector>

#include "platform/files.h"

namespace captoria {

Project::Project(const Preferences& preferences) {
  SubtitleTrack& first = tracks.Current();
  first.style = preferences.TrackAt(0).style;
  first.list_font = preferences.settings.list_font;  // the lists on screen begin as the last ones on screen were
  tracks.SetRightToLeft(preferences.settings.right_to_left);
}

void Project::SelectLastTab(const Preferences& preferences) {
  tracks.SelectLastTab([&](int index, SubtitleTrack& track) {
    const bool right_to_left = track.style.RightToLeft;
    TrackValues stored = preferences.TrackAt(index);
    track.style = std::move(stored.style);
    track.style.RightToLeft = right_to_left;
    track.list_font = std::move(stored.list_font);
  });
}

std::size_t Project::ShownCount() const {
  const SubtitleTrack& track = tracks.Current();
  return only_outside ? track.outside.size() : track.cues.size();
}

SubtitleCue& Project::ShownCue(std::size_t row) {
  SubtitleTrack& track = tracks.Current();
  return track.cues[only_outside ? track.outside[row].row : row];
}

bool& Project::ShownSelected(std::size_t row) {
  SubtitleTrack& track = tracks.Current();
  return only_outside ? track.outside[row].Selected : track.cues[row].Selected;
}

Result<void> SaveAll(Preferences& preferences, const Project& project) {
  preferences.settings.right_to_left = project.tracks.RightToLeft();
  std::vector<TrackValues> open;
  for (const SubtitleTrack& track : project.tracks.Open()) open.push_back({track.style, track.list_font});
  return preferences.Save(open, static_cast<std::size_t>(project.tracks.CurrentIndex()));
}

bool HasSubtitles(const Project& project) {
  const SubtitleTrack& first = project.tracks.Open().front();
  return first.HasFile() && FileExists(first.path);
}

void ChooseVideoSystem(Project& project, bool ntsc) {
  project.video.VideoSystem = ntsc ? VideoSystem::Ntsc : VideoSystem::Pal;
}

}  // namespace captoria
