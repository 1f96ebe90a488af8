// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/divxmux_arguments.h"

#include <gmock/gmock.h>

namespace captoria {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

// "v:(Video) /a b.avi" for each stream, so that a whole command is compared at once.
Words Streams(const DivxMuxArguments& arguments) {
  Words words;
  for (const DivxMuxStream& stream : arguments.streams) {
    const std::string number = std::to_string(stream.number);
    std::string word;
    switch (stream.kind) {
      case DivxMuxStream::Kind::Video:
        word = "video";
        break;
      case DivxMuxStream::Kind::Audio:
        word = "audio " + number;
        break;
      case DivxMuxStream::Kind::Subtitle:
        word = "subtitle " + number;
        break;
      case DivxMuxStream::Kind::NewSubtitle:
        word = "new";
        break;
    }
    words.push_back(word + ":" + stream.title + ":" + stream.path);
  }
  return words;
}

struct Command {
  const char* name;
  Words arguments;
  Words streams;
};

class DivxMuxCommand : public testing::TestWithParam<Command> {};

TEST_P(DivxMuxCommand, NamesItsStreamsInOrder) {
  const auto parsed = ParseDivxMuxArguments(GetParam().arguments);
  ASSERT_TRUE(parsed) << parsed.error().message;
  EXPECT_EQ(Streams(*parsed), GetParam().streams);
  EXPECT_EQ(parsed->output, "o.divx");
}

INSTANTIATE_TEST_SUITE_P(
    Forms, DivxMuxCommand,
    testing::Values(Command{"TitlesWhole",
                            {"-v", "(Video)", "a b.avi", "-s", "#1", "(Subtitle - English)", "a b.avi", "-a", "#12",
                             "(Audio)", "a b.avi", "-s", "(Subtitle - en;02)", "aXsub0.xsub", "-o", "o.divx"},
                            {"video:Video:a b.avi", "subtitle 1:Subtitle - English:a b.avi", "audio 12:Audio:a b.avi",
                             "new:Subtitle - en;02:aXsub0.xsub"}},
                    Command{"TitlesTakenApartAtBlanks",
                            {"-v", "(Video", "of", "us)", "a b.avi", "-s", "(Subtitle", "-", "en;02)",
                             "linkerfile0.txt", "-o", "o.divx"},
                            {"video:Video of us:a b.avi", "new:Subtitle - en;02:linkerfile0.txt"}},
                    Command{"EmptyTitles",
                            {"-v", "()", "a.avi", "-a", "#1", "()", "a.avi", "-o", "o.divx"},
                            {"video::a.avi", "audio 1::a.avi"}},
                    Command{"ParenthesesInsideATitle",
                            {"-v", "(Video", "(uncut)", "take", "2)", "a.avi", "-s", "#2", "(Subtitle (forced))",
                             "a.avi", "-o", "o.divx"},
                            {"video:Video (uncut) take 2:a.avi", "subtitle 2:Subtitle (forced):a.avi"}},
                    Command{"OptionsInsideATitleAndAPathInParentheses",
                            {"-v", "(Video", "-s", "-o)", "(a).avi)", "-o", "o.divx"},
                            {"video:Video -s -o:(a).avi)"}},
                    Command{"OutputFirst", {"-o", "o.divx", "-v", "(V)", "a.avi"}, {"video:V:a.avi"}}),
    [](const auto& row) { return std::string{row.param.name}; });

struct Refusal {
  const char* name;
  Words arguments;
  const char* message;
};

class DivxMuxRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(DivxMuxRefusal, SaysWhatIsWrong) {
  const auto parsed = ParseDivxMuxArguments(GetParam().arguments);
  ASSERT_FALSE(parsed);
  EXPECT_THAT(parsed.error().message, HasSubstr(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, DivxMuxRefusal,
    testing::Values(Refusal{"Nothing", {}, "(-v)"}, Refusal{"NoOutput", {"-v", "()", "a.avi"}, "(-o)"},
                    Refusal{"OutputWithoutAPath", {"-v", "()", "a.avi", "-o"}, "missing after -o"},
                    Refusal{"TwoVideos", {"-v", "()", "a", "-v", "()", "a", "-o", "o"}, "-v is given twice"},
                    Refusal{"TwoOutputs", {"-v", "()", "a", "-o", "o", "-o", "p"}, "-o is given twice"},
                    Refusal{"AudioWithoutANumber", {"-v", "()", "a", "-a", "()", "a", "-o", "o"}, "as #1"},
                    Refusal{"NumberZero", {"-v", "()", "a", "-a", "#0", "()", "a", "-o", "o"}, "\"#0\""},
                    Refusal{"NoNumber", {"-v", "()", "a", "-s", "#1x", "()", "a", "-o", "o"}, "\"#1x\""},
                    Refusal{"NumberTooLarge", {"-v", "()", "a", "-a", "#99999999999", "()", "a", "-o", "o"}, "#999"},
                    Refusal{"NoTitle", {"-v", "a.avi", "-o", "o"}, "after -v"},
                    Refusal{"TitleNeverClosed", {"-v", "(Video", "a.avi", "-o", "o"}, "after -v"},
                    Refusal{"OneParenthesisAlone", {"-v", "(", "a.avi", "-o", "o"}, "after -v"},
                    Refusal{"NoPath", {"-o", "o", "-v", "(V)"}, "after -v (V)"},
                    Refusal{"UnknownOption", {"-v", "()", "a", "-x", "-o", "o"}, "\"-x\""},
                    Refusal{"UnknownProfile", {"-v", "()", "a", "-o", "o", "--profile", "tv"}, "\"tv\""}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(DivxMuxProfile, OptionGoesBeforeTheEnvironment) {
  Words arguments{"-v", "()", "a", "-o", "o"};
  EXPECT_FALSE(ParseDivxMuxArguments(arguments)->hardware_profile);
  EXPECT_TRUE(ParseDivxMuxArguments(arguments, "hardware")->hardware_profile);
  EXPECT_FALSE(ParseDivxMuxArguments(arguments, "nonsense"));
  arguments.insert(arguments.end(), {"--profile", "readers"});
  EXPECT_FALSE(ParseDivxMuxArguments(arguments, "hardware")->hardware_profile);
  arguments.push_back("--profile=hardware");
  EXPECT_TRUE(ParseDivxMuxArguments(arguments)->hardware_profile);
}

TEST(DivxMuxHelp, NeedsNothingElse) {
  EXPECT_TRUE(ParseDivxMuxArguments(Words{"--help"})->help);
  EXPECT_TRUE(ParseDivxMuxArguments(Words{"-v", "()", "a", "--version"})->version);
}

}  // namespace
}  // namespace captoria
