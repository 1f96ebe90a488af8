// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/placement_commands.h"

#include <string>
#include <unordered_set>

#include "app/safe_area_commands.h"

namespace captoria {

void SetAlignForSelectedSubs(Session& session, Alignment align) {
  std::unordered_set<std::string> selected;
  for (const SubtitleCue& cue : ShownCues(session)) {
    if (cue.Selected) selected.insert(cue.Number);
  }
  // A cue outside the safe area stands in both lists.
  SubtitleTrack& track = session.tracks.Current();
  for (auto* list : {&track.cues, &track.outside}) {
    for (SubtitleCue& cue : *list) {
      if (selected.contains(cue.Number)) cue.Tag = WithOwnAlignment(cue.Tag, align);
    }
  }
}

}  // namespace captoria
