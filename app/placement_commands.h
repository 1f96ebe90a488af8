// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Giving the selected cues a placement of their own.
#pragma once

#include "app/project.h"
#include "automation/command_file.h"
#include "settings/placement.h"

namespace captoria {

// Every selected cue of the list on screen gets the alignment; its own position and its fitting stay
// (`SetAlignForSelectedSubs`).
void SetAlignForSelectedSubs(Project& project, Alignment align);

// Every selected cue of the current track, whichever list is on screen, gets the command's placement in place of its
// own; its fitting stays.
void RunPosAlCommand(Project& project, const PlacementCommand& command);

}  // namespace captoria
