// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/cue_canvas.h"

namespace captoria {

Result<std::shared_ptr<FontCollection>> CueCanvas::Fonts() {
  if (!fonts_) {
    auto opened = FontCollection::Open();
    if (!opened) return opened;
    fonts_ = std::move(*opened);
  }
  return fonts_;
}

Result<SubtitleBitmap*> CueCanvas::Bitmap(const BitmapFrame& frame) {
  if (!bitmap_ || bitmap_->Frame() != frame) {
    const auto fonts = Fonts();
    if (!fonts) return tl::unexpected(fonts.error());
    bitmap_.emplace(*fonts, frame);
  }
  return &*bitmap_;
}

}  // namespace captoria
