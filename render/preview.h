// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Shows what a cue will look like: its bitmap alone, and over a picture of the film. All lengths are in pixels.
#pragma once

#include "base/color.h"
#include "base/geometry.h"
#include "media/video/frame_decoder.h"
#include "render/dib.h"

namespace captoria {

// The top left corner of a bitmap on a picture of the film. `hor_pos` moves it to the right of the centre; it stays on
// the picture unless it is wider. `slider_value` moves it up: 0 puts it on the bottom edge, `slider_maximum` under the
// top edge. If the maximum is below 1, the bitmap is put on the bottom edge.
Point PlaceOnPreview(const Size& frame, const Size& bitmap, int hor_pos, int slider_value, int slider_maximum);

// Draws the part of `bitmap` that is on the picture if its top left corner is at `at`. Pixels of the colour
// `back_color` are not drawn, whatever their entry: text of that colour disappears.
void Overlay(VideoFrame& frame, const cDIB& bitmap, Point at, const Color& back_color);

// The bitmap alone, every pixel opaque. Has no pixels if there is no bitmap.
VideoFrame ImageOf(const cDIB& bitmap);

}  // namespace captoria
