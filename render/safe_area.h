// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Finds the cues of a track that are too wide or too high for the picture, and the font size at which they fit.
//
// The safe viewing area of a track is as wide as the video frame and as high as a bitmap for two lines of the track's
// font. The height of a text counts one line less than it has, so three lines of an ordinary font are inside.
#pragma once

#include "render/subtitle_bitmap.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

struct SafeAreaCheck {
  int outside = 0;            // cues outside the area, including those that fit in a smaller font
  bool has_font_tag = false;  // a cue has a font tag, so the track lost its shadow and the user should know
};

// Tests all cues of `track` again: fills its outside list, removes old fitted sizes and stores new ones. The fitted
// size is the largest whole size below the track's own, and at least 5 points, at which the cue is inside. A cue that
// is outside even at 5 points gets no fitted size.
//
// If a cue has a <font ...> tag, the track's shadow bevel becomes 0: a bitmap has one entry for shadow and font colour,
// so the shadow would be drawn in the colour of the font.
//
// `bitmap` is left prepared for two lines of the track's font.
SafeAreaCheck ReCheckSrt(SubtitleTrack& track, SubtitleBitmap& bitmap);

}  // namespace captoria
