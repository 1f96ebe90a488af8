// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The open tracks. There is always at least one, and exactly one is current. A new track is added after the last one if
// that has a file. Tracks are only closed all together.
#pragma once

#include <array>
#include <functional>
#include <span>

#include "settings/settings.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

class TrackSet {
 public:
  // Gives a new track the style last saved for its index, 0 to 7, but not the right-to-left flag: the set remembers
  // that for all eight indices, also for tracks that are not open.
  using StyleSource = std::function<void(int index, SubtitleTrack& track)>;

  int Count() const { return count_; }
  int CurrentIndex() const { return current_; }

  // Whether there is room for another track, and therefore a tab "<New>".
  bool HasNewTab() const { return count_ < kMostTracks; }

  // The open tracks in tab order.
  std::span<SubtitleTrack> Open() { return {tracks_.data(), static_cast<std::size_t>(count_)}; }
  std::span<const SubtitleTrack> Open() const { return {tracks_.data(), static_cast<std::size_t>(count_)}; }

  SubtitleTrack& Current() { return Open()[static_cast<std::size_t>(current_)]; }
  const SubtitleTrack& Current() const { return Open()[static_cast<std::size_t>(current_)]; }

  // Makes an open track current; `index` is 0 to Count() - 1.
  void Select(int index);

  // Chooses the last tab: adds a track and makes it current if the last one has a file and there is room; otherwise
  // makes the last one current.
  void SelectLastTab(const StyleSource& style_of);

  // Closes all tracks (`UnloadAllSrts`); the first stays, empty, with its style.
  void UnloadAllSrts();

  std::array<bool, kMostTracks> RightToLeft() const;
  void SetRightToLeft(const std::array<bool, kMostTracks>& flags);

 private:
  std::array<SubtitleTrack, kMostTracks> tracks_;
  int count_ = 1;
  int current_ = 0;
};

}  // namespace captoria
