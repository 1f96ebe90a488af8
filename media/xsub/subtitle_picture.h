// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The picture of a cue as subtitle formats carry it: four colours, of which number 0 lets the film through.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/color.h"
#include "base/geometry.h"

namespace captoria {

struct SubtitlePicture {
  SubtitlePicture() = default;
  SubtitlePicture(int columns, int rows)
      : width(columns), height(rows), pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

  std::span<std::uint8_t> Row(int y) {
    return {pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width),
            static_cast<std::size_t>(width)};
  }
  std::span<const std::uint8_t> Row(int y) const { return const_cast<SubtitlePicture*>(this)->Row(y); }

  bool IsClearRow(int y) const;

  bool operator==(const SubtitlePicture&) const = default;

  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;  // colour numbers 0 to 3, rows from the top
  std::array<Color, 4> colors{};     // that of number 0 is never seen
};

// A picture with its top left corner on the frame.
struct PlacedPicture {
  SubtitlePicture picture;
  int left = 0;
  int top = 0;

  bool operator==(const PlacedPicture&) const = default;
};

// The picture with an even left, top, width and height inside `frame`, as players want it. That is done with columns
// and rows of colour 0, so whatever is inside the frame stays where it is: up to one is added on each side, and those
// outside the frame are taken away. Visible pixels outside bring the whole picture in, as little as it takes. A visible
// part larger than the frame keeps its top left corner and loses what no player could show.
//
// The picture has at least one pixel, the frame at least two columns and rows; an odd last one is not used.
PlacedPicture FitToFrame(const PlacedPicture& placed, const Size& frame);

}  // namespace captoria
