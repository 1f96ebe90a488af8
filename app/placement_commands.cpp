// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/placement_commands.h"

#include <string>
#include <string_view>

namespace captoria {
namespace {

// Rewrites the tag of every cue that is selected in the list of all cues, or in that of those outside the safe area. A
// cue of the latter stands in both lists, in the same order, and has one tag.
template <typename Rewrite>
void RewriteSelected(SubtitleTrack& track, bool selected_outside, const Rewrite& rewrite) {
  auto outside = track.outside.begin();
  for (SubtitleCue& cue : track.cues) {
    const bool both = outside != track.outside.end() && outside->Number == cue.Number;
    if (selected_outside ? both && outside->Selected : cue.Selected) {
      cue.Tag = rewrite(cue.Tag);
      if (both) outside->Tag = rewrite(outside->Tag);
    }
    if (both) ++outside;
  }
}

}  // namespace

void SetAlignForSelectedSubs(Session& session, Alignment align) {
  RewriteSelected(session.tracks.Current(), session.only_outside,
                  [&](std::string_view tag) { return WithOwnAlignment(tag, align); });
}

void RunPosAlCommand(Session& session, const PlacementCommand& command) {
  std::string own;
  if (command.toChangePos) own += std::to_string(command.position);
  if (command.toChangeAl) own += command.alignment;
  RewriteSelected(session.tracks.Current(), false, [&](std::string_view tag) { return WithPlacementText(tag, own); });
}

}  // namespace captoria
