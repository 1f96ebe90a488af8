// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the user does about cues beyond the safe viewing area: check, look at those alone, fit them or not.
#pragma once

#include <cstddef>

#include "app/session.h"
#include "base/result.h"
#include "subtitles/cue.h"

namespace captoria {

// Checks the current track (render/safe_area.h) and gives the number of cues outside. A cue with a font colour takes
// the shadow from the track and, unless `is_batch`, the user is told. When no cue is outside any longer, all cues are
// shown again.
Result<int> CheckSafeArea(Session& session, bool is_batch);

// What a load says of `outside` cues: that they will be fitted, or that they will not.
void TellOutsideCues(Session& session, int outside);

// Shows the cues outside alone, or all cues.
void ShowEditOnly(Session& session, bool only_outside);

// The list on screen: its number of rows, the cue of a row, and whether the row is selected there.
std::size_t ShownCount(const Session& session);
SubtitleCue& ShownCue(Session& session, std::size_t row);
bool& ShownSelected(Session& session, std::size_t row);

// Fits the cues of the current track from now on, or no longer.
void ToggleFitFont(Session& session);

}  // namespace captoria
