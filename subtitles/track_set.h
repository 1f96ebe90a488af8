// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The open tracks. There is always at least one and exactly one is current; a track is made behind the last one when
// that holds a file, and tracks are only ever closed together.
#pragma once

#include <array>
#include <functional>
#include <span>

#include "settings/settings.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

class TrackSet {
 public:
  // Gives a new track the style that was last saved for its index, 0 to 7. The right-to-left flag is not its to give:
  // that is remembered here for all eight indices, whether or not their tracks are open.
  using StyleSource = std::function<void(int index, SubtitleTrack& track)>;

  int Count() const { return count_; }
  int CurrentIndex() const { return current_; }

  // Whether there is room for another track, and so a tab "<New>".
  bool HasNewTab() const { return count_ < kMostTracks; }

  // The open tracks in tab order.
  std::span<SubtitleTrack> Open() { return {tracks_.data(), static_cast<std::size_t>(count_)}; }
  std::span<const SubtitleTrack> Open() const { return {tracks_.data(), static_cast<std::size_t>(count_)}; }

  SubtitleTrack& Current() { return Open()[static_cast<std::size_t>(current_)]; }
  const SubtitleTrack& Current() const { return Open()[static_cast<std::size_t>(current_)]; }

  // Makes an open track current; `index` is 0 to Count() - 1.
  void Select(int index);

  // What choosing the last tab does: a new track becomes current when the last one holds a file and there is room;
  // otherwise the last one becomes current.
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
