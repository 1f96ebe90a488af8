// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Places a cue's bitmap on the video frame. All lengths are in pixels.
#pragma once

#include <string_view>

#include "base/geometry.h"
#include "settings/track_style.h"

namespace captoria {

// The top left corner of a bitmap of `bitmap_width` for a cue of `lines` lines with the placement in `tag`.
// `line_height` is that of the track's own font, even if the cue was fitted. The bitmap never reaches beyond the left,
// right or top edge of the frame.
Point PlaceOnFrame(const Size& frame, const TrackStyle& style, std::string_view tag, int lines, int line_height,
                   int bitmap_width);

// The height that list files give for a bitmap of `height` rows.
int ListedHeight(int height);

}  // namespace captoria
