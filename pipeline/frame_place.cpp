// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/frame_place.h"

#include <algorithm>
#include <cstdint>

#include "settings/placement.h"

namespace captoria {

Point PlaceOnFrame(const Size& frame, const TrackStyle& style, std::string_view tag, int lines, int line_height,
                   int bitmap_width) {
  constexpr int kBesideLines = 15;
  const int up = ReadPlacement(tag).position.value_or(style.VertPos);
  const std::int64_t y = frame.height - (std::int64_t{lines} * line_height + kBesideLines) - up;
  const int x = std::max(0, style.HorPos + (frame.width - bitmap_width) / 2);
  return {.x = std::min(x, frame.width - bitmap_width),
          .y = static_cast<int>(std::clamp<std::int64_t>(y, 0, INT32_MAX))};
}

int ListedHeight(int height) {
  // 100 rows are listed as 98. Nothing is lost, as the last five rows are below the text.
  return height == 100 ? 98 : height;
}

}  // namespace captoria
