// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where a cue's bitmap stands on the video frame. All lengths are pixels.
#pragma once

#include <string_view>

#include "base/geometry.h"
#include "settings/track_style.h"

namespace captoria {

// The place of a bitmap of `bitmap_width` for a cue of `lines` lines with the placement in `tag`; `line_height` is that
// of the track's own font, also for a cue that was fitted. Never left of, right of or above the frame.
Point PlaceOnFrame(const Size& frame, const TrackStyle& style, std::string_view tag, int lines, int line_height,
                   int bitmap_width);

// The height that lists give a bitmap of `height` rows.
int ListedHeight(int height);

}  // namespace captoria
