// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// One cue as the picture that is written: a four-colour bitmap sized by the cue's text, the text at its bottom.
#pragma once

#include <memory>
#include <string_view>

#include "render/dib.h"
#include "render/font_surface.h"
#include "settings/placement.h"
#include "settings/track_style.h"

namespace captoria {

// What all bitmaps of a conversion have in common.
struct BitmapFrame {
  int width = 720;   // of the video frame in pixels; no bitmap is wider
  Color back_color;  // of entry 0, which players show as transparent

  bool operator==(const BitmapFrame&) const = default;
};

// The style that one cue is drawn in: the track's, with the size fitted to the cue when the track asks for fitting, and
// the cue's own alignment when it has one. `tag` is the cue's.
TrackStyle StyleOfCue(const TrackStyle& track, std::string_view tag);

// The bitmap that cues are measured against and drawn into, one after the other. One a thread.
class SubtitleBitmap {
 public:
  SubtitleBitmap(std::shared_ptr<FontCollection> fonts, const BitmapFrame& frame);
  SubtitleBitmap(const SubtitleBitmap&) = delete;
  SubtitleBitmap& operator=(const SubtitleBitmap&) = delete;

  // Prepares the bitmap for `lines` lines of the style's font at its present width, made even: the height, the colours,
  // an empty picture, the font and text colour selected. Heights are even, and at most cDIB::kLongestSide, beyond which
  // the topmost lines are cut off.
  void SetDibProp(const TrackStyle& style, int lines);

  // Draws a cue's text in `style` (see StyleOfCue).
  void RenderCueBitmap(std::string_view text, const TrackStyle& style);

  const cDIB& Dib() const { return dib_; }
  // Of `font`, which is selected afterwards.
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
