// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// One row of a track's cue list, as the list shows it.
#pragma once

#include <string>
#include <string_view>

namespace captoria {

struct SubtitleCue {
  std::string Number;     // decimal, 1 for the first kept cue
  std::string Show;       // HH:MM:SS,mmm
  std::string Hide;       // HH:MM:SS,mmm
  std::string Text;       // UTF-8 lines joined by CR LF, no CR LF at the end; markup as in the file
  std::string Tag;        // fitted font size and own placement (settings/placement.h); empty after reading
  bool Selected = false;  // chosen by the user or a select command
};

inline constexpr std::string_view kLineBreak = "\r\n";

inline int CountLines(std::string_view text) {
  int lines = 1;
  for (auto at = text.find(kLineBreak); at != text.npos; at = text.find(kLineBreak, at + kLineBreak.size())) ++lines;
  return lines;
}

// The only row of a track whose file is a VobSub index: the track has no cues and its file is passed on.
inline SubtitleCue IdxPlaceholder() { return {.Number{}, .Show{}, .Hide = "idx file", .Text{}, .Tag{}}; }

}  // namespace captoria
