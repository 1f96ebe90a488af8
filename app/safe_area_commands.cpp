// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/safe_area_commands.h"

#include <string>

#include "render/safe_area.h"

namespace captoria {

Result<int> CheckSafeArea(Workspace& workspace) {
  const auto bitmap = workspace.canvas.Bitmap(FrameOf(workspace.preferences.settings));
  if (!bitmap) return tl::unexpected(bitmap.error());
  const SafeAreaCheck check = ReCheckSrt(workspace.project.tracks.Current(), **bitmap);
  if (check.has_font_tag) {
    workspace.reporter.Advise("This subtitle has a '<font color=...>' tag. Outline will be 0");
  }
  if (check.outside == 0) workspace.project.only_outside = false;
  return check.outside;
}

void TellOutsideCues(Workspace& workspace, int outside) {
  const SubtitleTrack& track = workspace.project.tracks.Current();
  const std::string text =
      std::to_string(outside) +
      workspace.language.TextOf(track.style.FitFont ? messages::kOutsideFitted : messages::kOutsideNotFitted);
  if (workspace.reporter.HasPerson()) return workspace.reporter.Advise(text);
  if (track.style.FitFont) return;
  workspace.reporter.Note({.kind = FindingKind::OutsideSafeArea,
                           .file = track.path,
                           .message = std::to_string(outside) + " cue(s) are larger than the safe viewing area"});
}

void ToggleFitFont(Project& project) {
  TrackStyle& style = project.tracks.Current().style;
  style.FitFont = !style.FitFont;
}

}  // namespace captoria
