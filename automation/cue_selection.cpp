// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/cue_selection.h"

#include <algorithm>

namespace captoria {
namespace {

// Greek has another form of the small sigma at the end of a word, and a capital sigma can become either. As one letter,
// "ΟΣ" as typed finds the cues that end with "ος".
char32_t OneSigma(char32_t character) {
  constexpr char32_t kFinalSigma = 0x3C2, kSigma = 0x3C3;
  return character == kFinalSigma ? kSigma : character;
}

std::u32string CharactersOf(std::string_view text) {
  std::u32string characters;
  while (!text.empty()) {
    const auto [value, length] = FirstCharacter(text);
    characters += OneSigma(value);
    text.remove_prefix(length);
  }
  return characters;
}

// Whether every line of `text` passes `test`.
template <typename Test>
bool AllLines(std::string_view text, const Test& test) {
  while (true) {
    const auto end = text.find(kLineBreak);
    if (!test(text.substr(0, end))) return false;
    if (end == text.npos) return true;
    text.remove_prefix(end + kLineBreak.size());
  }
}

}  // namespace

std::string ReversedCharacters(std::string_view text) {
  std::string reversed;
  reversed.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = LastCharacter(text).length;
    reversed += text.substr(text.size() - length);
    text.remove_suffix(length);
  }
  return reversed;
}

CueMatcher::CueMatcher(const SelectRule& rule, CaseRule case_rule)
    : lines_(rule.NumOfLines),
      start_(CharactersOf(rule.txtToStart)),
      end_(CharactersOf(rule.txtToEnd)),
      start_for_all_(rule.txtToStartForAll),
      end_for_all_(rule.txtToEndForAll),
      case_rule_(case_rule) {}

// Reads the characters of the cue one by one until one differs: most cues differ in the first.
bool CueMatcher::Starts(std::string_view text) const {
  return std::ranges::all_of(start_, [&](char32_t wanted) {
    if (text.empty()) return false;
    const auto [value, length] = FirstCharacter(text);
    text.remove_prefix(length);
    return OneSigma(LowerCase(value, case_rule_)) == wanted;
  });
}

bool CueMatcher::Ends(std::string_view text) const {
  return std::ranges::all_of(end_, [&](char32_t wanted) {
    if (text.empty()) return false;
    const auto [value, length] = LastCharacter(text);
    text.remove_suffix(length);
    return OneSigma(LowerCase(value, case_rule_)) == wanted;
  });
}

bool CueMatcher::Matches(std::string_view text) const {
  if (lines_ <= 0 && start_.empty() && end_.empty()) return false;
  const auto starts = [this](std::string_view line) { return Starts(line); };
  const auto ends = [this](std::string_view line) { return Ends(line); };
  if (!(start_for_all_ ? AllLines(text, starts) : Starts(text))) return false;
  if (!(end_for_all_ ? AllLines(text, ends) : Ends(text))) return false;
  return lines_ <= 0 || CountLines(text) == lines_;
}

std::size_t SelectCues(std::span<SubtitleCue> cues, const SelectRule& rule, CaseRule case_rule) {
  const CueMatcher matcher(rule, case_rule);
  std::size_t selected = 0;
  for (SubtitleCue& cue : cues) {
    cue.Selected = matcher.Matches(cue.Text);
    selected += cue.Selected ? 1 : 0;
  }
  return selected;
}

}  // namespace captoria
