// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Converts DVD pictures to XSUB. Each of the four entries of a DVD picture has its own opacity. In XSUB, entry 0 is
// transparent and the others are opaque, so an entry with any opacity becomes opaque.
#pragma once

#include <array>

#include "base/result.h"
#include "media/vobsub/vobsub_index.h"
#include "media/vobsub/vobsub_packet.h"
#include "media/xsub/subtitle_picture.h"
#include "media/xsub/xsub_packet.h"

namespace captoria {

// The colours of a picture's entries: its own, or the custom colours of the index. Without a palette the pattern is
// white, the first emphasis black and the second grey, as on most discs.
struct SpuColors {
  std::array<Color, 4> colors{};
  std::array<bool, 4> visible{};
};

SpuColors ColorsOf(const VobSubIndex& index, const SpuDisplay& display);

// Renumbers the pixels and colours of `picture` so that only number 0 is invisible. If all four entries are visible,
// the two most similar colours become one: the colour with more pixels. Returns whether a pixel changed.
bool RenumberColors(SubtitlePicture& picture, const std::array<bool, 4>& visible);

// The packet that shows the unit at `times`. The run-length codes of a complete unit are copied if they mean the same
// in XSUB, that is, if no pixel was renumbered and the area fits XSUB's rules and the frame.
Result<Bytes> ConvertSpu(ByteView spu, const SpuDisplay& display, const VobSubIndex& index, const XsubTimes& times);

}  // namespace captoria
