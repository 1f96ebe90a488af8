// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a cue will look like: its bitmap by itself, and laid over a picture of the film. All lengths are pixels.
#pragma once

#include "base/color.h"
#include "base/geometry.h"
#include "media/video/frame_decoder.h"
#include "render/dib.h"

namespace captoria {

// The top left corner of a bitmap on a picture of the film. `hor_pos` moves it right of the centred place; it stays on
// the picture unless it is wider. `slider_value` of `slider_maximum` is how far up it stands: 0 puts it on the bottom
// edge, the maximum under the top edge. A maximum below 1 is no range, and the bitmap stands on the bottom edge.
Point PlaceOnPreview(const Size& frame, const Size& bitmap, int hor_pos, int slider_value, int slider_maximum);

// Draws `bitmap` with its top left corner `at` there, as far as it lies on the picture. What has the colour
// `back_color` is not drawn, whichever entry it is: text of that colour disappears.
void Overlay(VideoFrame& frame, const cDIB& bitmap, Point at, const Color& back_color);

// The bitmap by itself, every pixel opaque. No pixels when there is no bitmap.
VideoFrame ImageOf(const cDIB& bitmap);

}  // namespace captoria
