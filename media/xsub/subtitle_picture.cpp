// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/xsub/subtitle_picture.h"

#include <algorithm>

namespace captoria {
namespace {

// Columns or rows on the frame, from `begin` to before `end`.
struct Extent {
  int begin = 0;
  int end = 0;

  int Length() const { return end - begin; }
};

// Where the columns, or the rows, of the result come from.
struct Fit {
  Extent kept;     // of the original
  int before = 0;  // added in front of the kept ones
  int place = 0;   // of the first one of the result on the frame; even
  int length = 0;  // of the result; even
};

Fit FitAxis(const Extent& all, const Extent& visible, int limit) {
  Extent kept{std::max(all.begin, std::min(0, visible.begin)), std::min(all.end, std::max(limit, visible.end))};
  if (kept.Length() > limit) kept.begin = std::min(visible.begin, kept.end - limit);
  kept.end = std::min(kept.end, kept.begin + limit);

  const int place = std::clamp(kept.begin, 0, limit - kept.Length());
  Fit fit{.kept = kept, .before = place % 2, .place = place - place % 2, .length = kept.Length() + place % 2};
  fit.length += fit.length % 2;
  return fit;
}

struct Box {
  Extent columns;
  Extent rows;
};

// The smallest box around all visible pixels; where none is visible, the first pixel stands for them.
Box VisibleBox(const SubtitlePicture& picture) {
  Box box{{picture.width, 0}, {picture.height, 0}};
  for (int y = 0; y < picture.height; ++y) {
    const auto row = picture.Row(y);
    const auto seen = [](std::uint8_t pixel) { return pixel != 0; };
    const auto first = std::ranges::find_if(row, seen);
    if (first == row.end()) continue;
    const auto last = std::find_if(row.rbegin(), row.rend(), seen);
    box.columns.begin = std::min(box.columns.begin, static_cast<int>(first - row.begin()));
    box.columns.end = std::max(box.columns.end, static_cast<int>(row.rend() - last));
    box.rows.begin = std::min(box.rows.begin, y);
    box.rows.end = y + 1;
  }
  return box.rows.end == 0 ? Box{{0, 1}, {0, 1}} : box;
}

Extent Moved(const Extent& extent, int by) { return {extent.begin + by, extent.end + by}; }

}  // namespace

bool SubtitlePicture::IsClearRow(int y) const {
  return std::ranges::all_of(Row(y), [](std::uint8_t pixel) { return pixel == 0; });
}

PlacedPicture FitToFrame(const PlacedPicture& placed, const Size& frame) {
  const SubtitlePicture& from = placed.picture;
  const Box visible = VisibleBox(from);
  const Fit columns = FitAxis({placed.left, placed.left + from.width}, Moved(visible.columns, placed.left),
                              frame.width - frame.width % 2);
  const Fit rows =
      FitAxis({placed.top, placed.top + from.height}, Moved(visible.rows, placed.top), frame.height - frame.height % 2);

  SubtitlePicture to(columns.length, rows.length);
  to.colors = from.colors;
  for (int y = 0; y < rows.kept.Length(); ++y) {
    const auto row = from.Row(rows.kept.begin - placed.top + y)
                         .subspan(static_cast<std::size_t>(columns.kept.begin - placed.left),
                                  static_cast<std::size_t>(columns.kept.Length()));
    std::ranges::copy(row, to.Row(rows.before + y).begin() + columns.before);
  }
  return {std::move(to), columns.place, rows.place};
}

}  // namespace captoria
