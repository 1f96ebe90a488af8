// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/srt_reader.h"

#include <gmock/gmock.h>

namespace captoria {
namespace {

using testing::HasSubstr;

// The cues as one text, "number show>hide text" a line, which reads better in a failure than structures do.
std::string Shown(const SrtReading& reading) {
  std::string all;
  for (const SubtitleCue& cue : reading.cues) {
    all += cue.Number + " " + cue.Show.substr(6) + ">" + cue.Hide.substr(6) + " " + cue.Text + "\n";
  }
  return all;
}

struct ReadingRow {
  const char* name;
  std::string_view file;
  std::string_view cues;
};

class SrtRule : public testing::TestWithParam<ReadingRow> {};

TEST_P(SrtRule, GivesTheCues) { EXPECT_EQ(Shown(ReadSrt(GetParam().file)), GetParam().cues); }

#define T1 "00:00:01,000 --> 00:00:02,500\n"
#define T3 "00:00:03,000 --> 00:00:04,000\n"

INSTANTIATE_TEST_SUITE_P(
    Files, SrtRule,
    testing::Values(
        ReadingRow{"WellFormed", "1\n" T1 "Hello\nWorld\n\n2\n" T3 "Bye\n",
                   "1 01,000>02,500 Hello\r\nWorld\n2 03,000>04,000 Bye\n"},
        ReadingRow{"NoEndOfTheLastLine", "1\n" T1 "Hello", "1 01,000>02,500 Hello\n"},
        ReadingRow{"BlankLinesInsideAreDropped", "1\n" T1 "a\n\n \t\nb\n", "1 01,000>02,500 a\r\nb\n"},
        ReadingRow{"BlanksOfATextLineStay", "1\n" T1 "  a \n", "1 01,000>02,500   a \n"},
        ReadingRow{"EmptyCueTakesNoNumber", "1\n" T1 "\n \n2\n" T3 "Bye\n", "1 03,000>04,000 Bye\n"},
        ReadingRow{"LastLineBeforeATimeLineIsTakenAsTheIndex", T1 "kept\nlost\n" T3 "Bye\n",
                   "1 01,000>02,500 kept\n2 03,000>04,000 Bye\n"},
        ReadingRow{"TextAboveTheFirstTimeLine", "title\n1\n" T1 "a\n", "1 00,000>00,000 title\n2 01,000>02,500 a\n"},
        ReadingRow{"NumberAsDialogue", "1\n" T1 "42\n\n2\n" T3 "43\n", "1 01,000>02,500 42\n2 03,000>04,000 43\n"},
        ReadingRow{"MixedLineEnds", "1\r" T1 "a\r\nb\rc\n\r\n", "1 01,000>02,500 a\r\nb\r\nc\n"},
        ReadingRow{"ADoubledCarriageReturnIsABlankLine", "1\r\r\n" T1 "a\r\r\n2\r\r\n" T3 "b",
                   "1 00,000>00,000 1\n2 01,000>02,500 a\r\n2\n3 03,000>04,000 b\n"},
        ReadingRow{"MarkupStays", "1\n" T1 "<i>a</i> {\\an8}&amp;\n", "1 01,000>02,500 <i>a</i> {\\an8}&amp;\n"},
        ReadingRow{"TwoTimeLinesInARow", "1\n" T1 T3 "a\n", "1 03,000>04,000 a\n"}, ReadingRow{"Empty", "", ""},
        ReadingRow{"OnlyATimeLine", T1, ""}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(SrtReading, ABadTimeLineIsToldWithLineReasonAndWhatWasKept) {
  const auto reading = ReadSrt("1\r\n" T1 "a\r\n\r\n2\n" T3 "b\n\n3\n00:00:05.000 --> 00:00:06,000\nc\n");
  EXPECT_EQ(Shown(reading), "1 01,000>02,500 a\n") << "the cue above the bad line was not complete yet";
  ASSERT_TRUE(reading.problem);
  EXPECT_EQ(reading.problem->line, 10u);
  EXPECT_THAT(reading.problem->message, HasSubstr("start time has no comma"));
  EXPECT_THAT(reading.problem->message, HasSubstr("\"00:00:05.000 --> 00:00:06,000\""));
  EXPECT_THAT(reading.problem->message, HasSubstr("1 cue(s)"));
}

TEST(SrtReading, AProblemQuotesTheBeginningOfItsLineWithoutWhatSteersATerminal) {
  struct Quote {
    std::string line, quoted;
  };
  for (const auto& [line, quoted] :
       {Quote{"-->\x1B[2J\x07\x7F.", "--> [2J  ."},
        Quote{"-->\xC2\x9B"
              "2J\xC2\xA0.",
              "--> 2J\xC2\xA0."},
        Quote{"-->\u202Ecba\u2066\u2069\u200E\u061C\u2028.", "--> cba     ."}, Quote{"-->é字", "-->é字"},
        Quote{"-->" + std::string(76, 'x') + "éy", "-->" + std::string(76, 'x') + "é..."},
        Quote{"-->" + std::string(1'000'000, 'x'), "-->" + std::string(77, 'x') + "..."}}) {
    const auto reading = ReadSrt(line);
    ASSERT_TRUE(reading.problem);
    EXPECT_THAT(reading.problem->message, HasSubstr('"' + quoted + "\". A time line"));
  }
}

}  // namespace
}  // namespace captoria
