// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The text file of a VobSub pair ("film.idx" beside "film.sub"): frame, colours, and for each language when its
// pictures are shown and where in the .sub they lie.
//
//   size: 720x576
//   palette: 000000, ffffff, ...
//   id: en, index: 0
//   timestamp: 00:00:01:500, filepos: 000000800
//
// The file comes from many tools and from hands, so a line that cannot be read counts for nothing, and only a file of
// another kind is refused.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/color.h"
#include "base/geometry.h"
#include "base/result.h"
#include "base/video_system.h"

namespace captoria {

struct VobSubCue {
  std::int64_t time = 0;       // milliseconds from the beginning of the film, delays included; may be negative
  std::uint64_t position = 0;  // of the picture's first pack in the .sub
};

struct VobSubLanguage {
  int substream = 0;  // 0 to 31
  std::vector<VobSubCue> cues;
};

// Colours that stand in for those the pictures name.
struct VobSubCustomColors {
  std::array<Color, 4> colors{};
  std::array<bool, 4> transparent{};
};

struct VobSubIndex {
  // Files beyond these bounds are TooLarge.
  static constexpr std::uint64_t kMostBytes = 16 << 20;
  static constexpr std::size_t kMostCues = 20'000;  // of one language
  static constexpr std::size_t kMostLanguages = 32;

  // PAL's where the file has no usable size.
  Size frame{.width = 720, .height = HeightOf(VideoSystem::Pal)};
  int left_shift = 0;  // `org`: what is added to the places of all pictures
  int top_shift = 0;
  std::optional<std::array<Color, 16>> palette;     // entries that the line lacks are black
  std::optional<VobSubCustomColors> custom_colors;  // when they are switched on
  bool forced_only = false;                         // show only pictures that are marked as forced
  int language_in_use = 0;                          // `langidx`: the `index` of a language
  std::vector<VobSubLanguage> languages;            // in the order of the file

  // The language in use; the first with cues where that one is missing or empty. Null when no language has any.
  const VobSubLanguage* Language() const;
};

// `path` is for messages. Damaged when `text` is no index, TooLarge beyond the bounds.
Result<VobSubIndex> ParseVobSubIndex(std::string_view text, const std::string& path);

Result<VobSubIndex> ReadVobSubIndex(const std::string& path);

}  // namespace captoria
