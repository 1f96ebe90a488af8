// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/cue_selection.h"

#include <gmock/gmock.h>

#include <vector>

namespace captoria {
namespace {

using testing::ElementsAre;

SelectRule Lines(int count) {
  SelectRule rule;
  rule.NumOfLines = count;
  return rule;
}

SelectRule Start(std::string text, bool for_all = false) {
  SelectRule rule;
  rule.txtToStart = std::move(text);
  rule.txtToStartForAll = for_all;
  return rule;
}

// `text` as a user reads it.
SelectRule End(const std::string& text, bool for_all = false) {
  SelectRule rule;
  rule.txtToEnd = ReversedCharacters(text);
  rule.txtToEndForAll = for_all;
  return rule;
}

struct MatchRow {
  const char* name;
  SelectRule rule;
  std::string text;
  bool matches;
  CaseRule case_rule = CaseRule::Common;
};

class CueMatching : public testing::TestWithParam<MatchRow> {};

TEST_P(CueMatching, GoesByTheRule) {
  const MatchRow& row = GetParam();
  EXPECT_EQ(CueMatcher(row.rule, row.case_rule).Matches(row.text), row.matches);
}

const auto kRowName = [](const auto& row) { return std::string{row.param.name}; };
constexpr auto kTurkish = CaseRule::Turkish;

INSTANTIATE_TEST_SUITE_P(Shapes, CueMatching,
                         testing::Values(MatchRow{"NothingAsked", {}, "a", false},
                                         MatchRow{"FlagsAloneAskNothing", Start("", true), "a", false},
                                         MatchRow{"TwoLines", Lines(2), "a\r\nb", true},
                                         MatchRow{"ThreeAreNotTwo", Lines(2), "a\r\nb\r\nc", false},
                                         MatchRow{"AnEmptyTextHasOneLine", Lines(1), "", true},
                                         MatchRow{"FewerThanNoneAsksNothing", Lines(-1), "a", false},
                                         MatchRow{"FirstLineOnly", Start("-"), "-a\r\nb", true},
                                         MatchRow{"EveryLineStarts", Start("-", true), "-a\r\n-b", true},
                                         MatchRow{"TheLastLineDoesNotStart", Start("-", true), "-a\r\n-b\r\nc", false},
                                         MatchRow{"StartLongerThanTheText", Start("abc"), "ab", false},
                                         MatchRow{"StartLongerThanALine", Start("ab", true), "ab\r\na", false},
                                         MatchRow{"EndInReadingOrder", End("!?"), "Why!?", true},
                                         MatchRow{"EndTurnedRound", End("!?"), "Why?!", false},
                                         MatchRow{"LastLineOnly", End("!?"), "a\r\nb!?", true},
                                         MatchRow{"TheFirstLineDoesNotEnd", End("!?", true), "a\r\nb!?", false},
                                         MatchRow{"EveryLineEnds", End("!?", true), "a!?\r\nb!?", true},
                                         MatchRow{"EndLongerThanTheText", End("abc"), "bc", false},
                                         MatchRow{"ALineBreakAtTheEndMakesALine", End("a", true), "a\r\n", false}),
                         kRowName);

INSTANTIATE_TEST_SUITE_P(Letters, CueMatching,
                         testing::Values(MatchRow{"CapitalsOfTheCue", Start("abc"), "ABcdef", true},
                                         MatchRow{"CapitalsOfTheRuleNeverMatch", Start("Abc"), "Abcdef", false},
                                         MatchRow{"GreekCapitals", Start("όχι"), "ΌΧΙ!", true},
                                         MatchRow{"AnyDressOfSigma", End("οσ"), "Ο δρόμος", true},
                                         MatchRow{"FinalSigmaInTheRule", End("ος"), "ΔΡΟΜΟΣ", true},
                                         MatchRow{"CommonI", Start("i"), "Istanbul", true},
                                         MatchRow{"TurkishI", Start("i"), "Isparta", false, kTurkish},
                                         MatchRow{"TurkishDotlessI", Start("ı"), "Isparta", true, kTurkish},
                                         MatchRow{"TurkishDottedI", Start("i"), "İzmir", true, kTurkish},
                                         MatchRow{"SharpS", End("ß"), "GROẞ", true},
                                         MatchRow{"SharpSIsNoDoubleS", End("ss"), "groß", false},
                                         MatchRow{"HebrewByItsLogicalEnd", End("ום"), "שלום", true},
                                         MatchRow{"CharactersNotBytes", End("\xA9"), "é", false}),
                         kRowName);

TEST(CueSelection, ReplacesWhatWasSelected) {
  std::vector<SubtitleCue> cues(3);
  cues[0].Text = "one";
  cues[0].Selected = true;
  cues[1].Text = cues[2].Text = "two\r\nlines";
  EXPECT_EQ(SelectCues(cues, Lines(2), CaseRule::Common), 2u);
  const auto selected = [](bool value) { return testing::Field(&SubtitleCue::Selected, value); };
  EXPECT_THAT(cues, ElementsAre(selected(false), selected(true), selected(true)));
  EXPECT_EQ(SelectCues(cues, {}, CaseRule::Common), 0u);
}

TEST(CueSelection, ReversesByCharacters) { EXPECT_EQ(ReversedCharacters("aéש😀"), "😀שéa"); }

}  // namespace
}  // namespace captoria
