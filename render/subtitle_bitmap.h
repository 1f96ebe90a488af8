// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Draws a cue as the picture that is written: a four-colour bitmap sized by the cue's text, with the text at its
// bottom.
#pragma once

#include <memory>
#include <string_view>

#include "render/dib.h"
#include "render/font_surface.h"
#include "settings/placement.h"
#include "settings/track_style.h"

namespace captoria {

// The properties that all bitmaps of a conversion share.
struct BitmapFrame {
  int width = 720;   // of the video frame, in pixels; no bitmap is wider
  Color back_color;  // of entry 0, which players show as transparent

  bool operator==(const BitmapFrame&) const = default;
};

// The style that a cue with the tag `tag` is drawn in: the track's style, with the size fitted to the cue if the track
// asks for fitting, and with the cue's own alignment if it has one.
TrackStyle StyleOfCue(const TrackStyle& track, std::string_view tag);

// The bitmap that cues are measured against and drawn into, one after the other. Each thread needs its own.
class SubtitleBitmap {
 public:
  SubtitleBitmap(std::shared_ptr<FontCollection> fonts, const BitmapFrame& frame);
  SubtitleBitmap(const SubtitleBitmap&) = delete;
  SubtitleBitmap& operator=(const SubtitleBitmap&) = delete;

  // Prepares the bitmap for `lines` lines of the style's font: sets its height and colours, clears it, and selects the
  // font and the text colour. The width stays, made even. The height is even and at most cDIB::kLongestSide; if the
  // lines need more, the topmost ones are cut off.
  void SetDibProp(const TrackStyle& style, int lines);

  // Draws a cue's text in `style` (see StyleOfCue).
  void RenderCueBitmap(std::string_view text, const TrackStyle& style);

  const cDIB& Dib() const { return dib_; }
  // The height of a line in `font`, which is selected afterwards.
  int LineHeight(const Font& font);

  TextSurface& Surface() { return surface_; }
  const FontReport& Report() const { return surface_.Report(); }
  const BitmapFrame& Frame() const { return frame_; }

 private:
  void Prepare(const TrackStyle& style, int width, int lines);

  BitmapFrame frame_;
  cDIB dib_;
  FontSurface surface_;
};

}  // namespace captoria
