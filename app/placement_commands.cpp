// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/placement_commands.h"

#include <string>

namespace captoria {
namespace {

// Calls `change` for every cue that is selected in the list of all cues.
template <typename Change>
void ChangeSelected(SubtitleTrack& track, const Change& change) {
  for (SubtitleCue& cue : track.cues) {
    if (cue.Selected) change(cue);
  }
}

// The same for the list of the cues outside the safe area, which has a selection of its own.
template <typename Change>
void ChangeSelectedOutside(SubtitleTrack& track, const Change& change) {
  for (const OutsideRow& outside : track.outside) {
    if (outside.Selected) change(track.cues[outside.row]);
  }
}

}  // namespace

void SetAlignForSelectedSubs(Project& project, Alignment align) {
  const auto change = [&](SubtitleCue& cue) { cue.Tag = WithOwnAlignment(cue.Tag, align); };
  SubtitleTrack& track = project.tracks.Current();
  project.only_outside ? ChangeSelectedOutside(track, change) : ChangeSelected(track, change);
}

void RunPosAlCommand(Project& project, const PlacementCommand& command) {
  std::string own;
  if (command.toChangePos) own += std::to_string(command.position);
  if (command.toChangeAl) own += command.alignment;
  ChangeSelected(project.tracks.Current(), [&](SubtitleCue& cue) { cue.Tag = WithPlacementText(cue.Tag, own); });
}

}  // namespace captoria
