// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/track_set.h"

#include <algorithm>

namespace captoria {

void TrackSet::Select(int index) { current_ = std::clamp(index, 0, count_ - 1); }

void TrackSet::SelectLastTab(const StyleSource& style_of) {
  if (Open().back().HasFile() && HasNewTab()) {
    style_of(count_, tracks_[static_cast<std::size_t>(count_)]);
    ++count_;
  }
  current_ = count_ - 1;
}

void TrackSet::UnloadAllSrts() {
  const TrackStyle first_style = tracks_.front().style;
  const Font first_font = tracks_.front().list_font;
  const auto right_to_left = RightToLeft();
  tracks_.fill({});
  tracks_.front().style = first_style;
  tracks_.front().list_font = first_font;
  SetRightToLeft(right_to_left);
  count_ = 1;
  current_ = 0;
}

std::array<bool, kMostTracks> TrackSet::RightToLeft() const {
  std::array<bool, kMostTracks> flags;
  std::ranges::transform(tracks_, flags.begin(), [](const SubtitleTrack& track) { return track.style.RightToLeft; });
  return flags;
}

void TrackSet::SetRightToLeft(const std::array<bool, kMostTracks>& flags) {
  for (std::size_t i = 0; i < flags.size(); ++i) tracks_[i].style.RightToLeft = flags[i];
}

}  // namespace captoria
