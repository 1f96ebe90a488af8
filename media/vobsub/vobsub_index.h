// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The text file of a VobSub pair ("film.idx" beside "film.sub"): the frame, the colours, and for each language the
// times of its pictures and their positions in the .sub.
//
//   size: 720x576
//   palette: 000000, ffffff, ...
//   id: en, index: 0
//   timestamp: 00:00:01:500, filepos: 000000800
//
// Many tools write such files and people edit them, so lines that cannot be read are ignored. Only a file of another
// kind is refused.
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

// Colours that replace the colours of the pictures.
struct VobSubCustomColors {
  std::array<Color, 4> colors{};
  std::array<bool, 4> transparent{};
};

struct VobSubIndex {
  // Larger files are TooLarge.
  static constexpr std::uint64_t kMostBytes = 16 << 20;
  static constexpr std::size_t kMostCues = 20'000;  // of one language
  static constexpr std::size_t kMostLanguages = 32;

  Size frame{.width = 720, .height = HeightOf(VideoSystem::Pal)};  // as it is if the file has no usable size
  int left_shift = 0;                                              // `org`: added to the position of every picture
  int top_shift = 0;
  std::optional<std::array<Color, 16>> palette;     // missing entries are black
  std::optional<VobSubCustomColors> custom_colors;  // only if switched on
  bool forced_only = false;                         // show only pictures marked as forced
  int language_in_use = 0;                          // `langidx`: the `index` of a language
  std::vector<VobSubLanguage> languages;            // in the order of the file

  // The language in use or, if it is missing or has no cues, the first language with cues. Null if there is none.
  const VobSubLanguage* Language() const;
};

// `path` is for messages. Damaged if `text` is not an index; TooLarge beyond the limits above.
Result<VobSubIndex> ParseVobSubIndex(std::string_view text, const std::string& path);

Result<VobSubIndex> ReadVobSubIndex(const std::string& path);

}  // namespace captoria
