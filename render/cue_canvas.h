// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The fonts of this machine and the bitmap that cues are measured against. Both are made when first asked for: a
// command that only reads needs neither, and finding all fonts takes longer than reading a hundred thousand cues.
//
// For one thread; its fonts may be shared with others.
#pragma once

#include <memory>
#include <optional>

#include "base/result.h"
#include "render/subtitle_bitmap.h"

namespace captoria {

class CueCanvas {
 public:
  // The errors of FontCollection::Open.
  Result<std::shared_ptr<FontCollection>> Fonts();

  // The bitmap in this frame; valid until the next call. The errors of Fonts.
  Result<SubtitleBitmap*> Bitmap(const BitmapFrame& frame);

 private:
  std::shared_ptr<FontCollection> fonts_;
  std::optional<SubtitleBitmap> bitmap_;
};

}  // namespace captoria
