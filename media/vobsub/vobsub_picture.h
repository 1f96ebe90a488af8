// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A DVD picture as XSUB can carry it. Each of a DVD picture's four entries has its own opacity, from none to full; of
// XSUB's, number 0 is clear and the others cover the film. So an entry of any opacity is shown in full.
#pragma once

#include <array>

#include "base/result.h"
#include "media/vobsub/vobsub_index.h"
#include "media/vobsub/vobsub_packet.h"
#include "media/xsub/subtitle_picture.h"
#include "media/xsub/xsub_packet.h"

namespace captoria {

// How the entries of a picture look: its own colours, or the custom ones of the index. Without a palette the pattern
// is white, the first emphasis black and the second grey, which is how most discs use them.
struct SpuColors {
  std::array<Color, 4> colors{};
  std::array<bool, 4> visible{};
};

SpuColors ColorsOf(const VobSubIndex& index, const SpuDisplay& display);

// Renumbers the pixels of `picture`, and its colours with them, so that number 0 is the only one not visible. Where all
// four can be seen, the two most alike become that of them which covers more. False when nothing had to change.
bool RenumberColors(SubtitlePicture& picture, const std::array<bool, 4>& visible);

// The packet that shows the unit at `times`. The codes of the unit's rows are taken over as they are where they mean
// the same in XSUB: colours, area and frame all fit, and the unit is whole.
Result<Bytes> ConvertSpu(ByteView spu, const SpuDisplay& display, const VobSubIndex& index, const XsubTimes& times);

}  // namespace captoria
