// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/safe_area_commands.h"

#include <string>

#include "render/safe_area.h"

namespace captoria {

Result<int> CheckSafeArea(Session& session, bool is_batch) {
  const auto bitmap = session.Bitmap();
  if (!bitmap) return tl::unexpected(bitmap.error());
  const SafeAreaCheck check = ReCheckSrt(session.tracks.Current(), **bitmap);
  if (check.has_font_tag && !is_batch && !session.BatchConverting) {
    session.prompts.ShowMessage(kProgramTitle, "This subtitle has a '<font color=...>' tag. Outline will be 0");
  }
  if (check.outside == 0) ShowEditOnly(session, false);
  return check.outside;
}

void TellOutsideCues(Session& session, int outside) {
  const bool fitted = session.tracks.Current().style.FitFont;
  const Message& message = fitted ? messages::kOutsideFitted : messages::kOutsideNotFitted;
  session.prompts.ShowMessage(kProgramTitle, std::to_string(outside) + session.TextFor(message));
}

void ShowEditOnly(Session& session, bool only_outside) { session.only_outside = only_outside; }

std::size_t ShownCount(const Session& session) {
  const SubtitleTrack& track = session.tracks.Current();
  return session.only_outside ? track.outside.size() : track.cues.size();
}

SubtitleCue& ShownCue(Session& session, std::size_t row) {
  SubtitleTrack& track = session.tracks.Current();
  return track.cues[session.only_outside ? track.outside[row].row : row];
}

bool& ShownSelected(Session& session, std::size_t row) {
  SubtitleTrack& track = session.tracks.Current();
  return session.only_outside ? track.outside[row].Selected : track.cues[row].Selected;
}

void ToggleFitFont(Session& session) {
  TrackStyle& style = session.tracks.Current().style;
  style.FitFont = !style.FitFont;
}

}  // namespace captoria
