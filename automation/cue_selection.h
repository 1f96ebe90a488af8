// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Choosing cues by their shape: how many lines they have, what they start with and what they end with. "Two lines, each
// with a dash before it" finds the dialogues of a file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/text_case.h"
#include "subtitles/cue.h"

namespace captoria {

// What a cue must have. Capital letters in either text match nothing: it is for whoever makes the rule to write them
// small.
struct SelectRule {
  int NumOfLines = 0;             // 0 or less: any number
  std::string txtToStart;         // in lower case; empty: anything
  bool txtToStartForAll = false;  // every line starts so, not only the first
  std::string txtToEnd;           // in lower case, its last character first; empty: anything
  bool txtToEndForAll = false;    // every line ends so, not only the last

  bool operator==(const SelectRule&) const = default;
};

// `text` with its characters in the opposite order, as a rule keeps the end of a cue.
std::string ReversedCharacters(std::string_view text);

// A rule made ready to be asked of many cues.
class CueMatcher {
 public:
  CueMatcher(const SelectRule& rule, CaseRule case_rule);

  // Whether a cue of this text has all that the rule asks for. A rule that asks for nothing is met by no cue.
  bool Matches(std::string_view text) const;

 private:
  bool Starts(std::string_view text) const;
  bool Ends(std::string_view text) const;

  int lines_;
  std::u32string start_, end_;
  bool start_for_all_, end_for_all_;
  CaseRule case_rule_;
};

// Selects the cues that meet the rule, and no others, whatever was selected before. Gives how many they are.
std::size_t SelectCues(std::span<SubtitleCue> cues, const SelectRule& rule, CaseRule case_rule);

}  // namespace captoria
