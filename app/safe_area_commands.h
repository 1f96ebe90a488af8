// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the user does about cues beyond the safe viewing area: check them, fit them or not.
#pragma once

#include "app/workspace.h"
#include "base/result.h"

namespace captoria {

// Checks the current track (render/safe_area.h) and returns the number of cues outside. A cue with a font colour takes
// the shadow from the track, which a person is told. If no cue is outside, all cues are shown again.
Result<int> CheckSafeArea(Workspace& workspace);

// What a load says about `outside` cues: that they will be fitted, or that they will not.
void TellOutsideCues(Workspace& workspace, int outside);

// Fits the cues of the current track from now on, or stops doing so.
void ToggleFitFont(Project& project);

}  // namespace captoria
