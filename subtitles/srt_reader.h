// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads SubRip text into cues.
//
// The rule is that of the line before: the line directly above a time line ("a --> b") is the cue's index and never
// text, whatever it holds; indices are not looked at and cues are numbered anew. Blank lines inside a cue are dropped,
// a cue without text is dropped and takes no number, and text above the first time line (but for its last line) becomes
// a cue at 00:00:00,000. Lines end at CR LF, CR or LF.
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
  std::string message;   // the reason, the line itself and what became of the cues before it
};

struct SrtReading {
  std::vector<SubtitleCue> cues;  // those before the problem, when there is one
  std::optional<SrtProblem> problem;
};

// "FILE: line N: " and the problem's message.
std::string DescribeProblem(std::string_view file, const SrtProblem& problem);

// `text` is UTF-8 without a byte-order mark.
SrtReading ReadSrt(std::string_view text);

}  // namespace captoria
