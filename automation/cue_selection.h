// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Selects cues by their number of lines and by the texts they start and end with. "Two lines that each start with a
// dash" finds the dialogues of a file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/text_case.h"
#include "subtitles/cue.h"

namespace captoria {

// What a cue must have. A capital letter in either text never matches: whoever makes a rule converts its texts to lower
// case.
struct SelectRule {
  int NumOfLines = 0;             // 0 or less: any number
  std::string txtToStart;         // in lower case; empty: anything
  bool txtToStartForAll = false;  // every line starts so, not only the first
  std::string txtToEnd;           // in lower case, in reverse order; empty: anything
  bool txtToEndForAll = false;    // every line ends so, not only the last

  bool operator==(const SelectRule&) const = default;
};

// `text` with its characters in reverse order, as in `txtToEnd`.
std::string ReversedCharacters(std::string_view text);

// A rule prepared for matching many cues.
class CueMatcher {
 public:
  CueMatcher(const SelectRule& rule, CaseRule case_rule);

  // Whether a cue with this text meets the whole rule. An empty rule matches no cue.
  bool Matches(std::string_view text) const;

 private:
  bool Starts(std::string_view text) const;
  bool Ends(std::string_view text) const;

  int lines_;
  std::u32string start_, end_;
  bool start_for_all_, end_for_all_;
  CaseRule case_rule_;
};

// Selects exactly the cues that match the rule, and returns their number.
std::size_t SelectCues(std::span<SubtitleCue> cues, const SelectRule& rule, CaseRule case_rule);

}  // namespace captoria
