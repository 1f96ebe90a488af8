// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Which cues of a track are too wide for the picture or have too many lines for it, and the size at which they fit.
//
// The safe viewing area of a track is as wide as the video frame and as high as a bitmap of two lines of the track's
// font. As the height of a text counts one line less than it has, three lines of an ordinary font are inside.
#pragma once

#include "render/subtitle_bitmap.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

struct SafeAreaCheck {
  int outside = 0;            // cues beyond the area, also those that a smaller font brings inside
  bool has_font_tag = false;  // the user should be told that the track now has no shadow
};

// Tests all cues of `track` anew: fills its outside list, drops old fitted sizes and stores new ones, the largest whole
// size below the track's own, and at least 5 points, at which a cue is inside. A cue that stays outside at 5 gets none.
//
// Where a cue has a <font ...> tag the track's shadow bevel becomes 0: its colour would be the font's, as a bitmap has
// only one entry for both.
//
// `bitmap` is left prepared for two lines of the track's font.
SafeAreaCheck ReCheckSrt(SubtitleTrack& track, SubtitleBitmap& bitmap);

}  // namespace captoria
