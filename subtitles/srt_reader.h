// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads SubRip text into cues.
//
// The line directly above a time line ("a --> b") is always the cue's index and never text. Indices are ignored and
// cues are numbered from 1. Blank lines inside a cue are dropped, and a cue without text is dropped and gets no number.
// Text above the first time line, except its last line, becomes a cue at 00:00:00,000. Lines end at CR LF, CR or LF.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "subtitles/cue.h"

namespace captoria {

// Why reading stopped before the end of the file.
struct SrtProblem {
  std::size_t line = 0;  // counted from 1
  std::string message;   // the reason, the line itself and how many cues were kept
};

struct SrtReading {
  std::vector<SubtitleCue> cues;  // if there is a problem, those before it
  std::optional<SrtProblem> problem;
};

// `text` is UTF-8 without a byte-order mark.
SrtReading ReadSrt(std::string_view text);

}  // namespace captoria
