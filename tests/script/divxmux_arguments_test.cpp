// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/divxmux_arguments.h"

#include <gmock/gmock.h>

namespace captoria {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

constexpr auto kVideo = DivxMuxStream::Kind::Video, kAudio = DivxMuxStream::Kind::Audio,
               kSubtitle = DivxMuxStream::Kind::Subtitle, kNew = DivxMuxStream::Kind::NewSubtitle;

TEST(DivxMuxCommand, NamesItsStreamsInOrder) {
  struct Row {
    const char* name;
    Words arguments;
    std::vector<DivxMuxStream> streams;
  };
  for (const auto& [name, arguments, streams] :
       {Row{"TitlesWhole",
            {"-v", "(Video)", "a b.avi", "-s", "#1", "(Subtitle - English)", "a b.avi", "-a", "#12", "(Audio)",
             "a b.avi", "-s", "(Subtitle - en;02)", "aXsub0.xsub", "-o", "o.divx"},
            {{kVideo, 1, "Video", "a b.avi"},
             {kSubtitle, 1, "Subtitle - English", "a b.avi"},
             {kAudio, 12, "Audio", "a b.avi"},
             {kNew, 1, "Subtitle - en;02", "aXsub0.xsub"}}},
        Row{"TitlesTakenApartAtBlanks",
            {"-v", "(Video", "of", "us)", "a b.avi", "-s", "(Subtitle", "-", "en;02)", "linkerfile0.txt", "-o",
             "o.divx"},
            {{kVideo, 1, "Video of us", "a b.avi"}, {kNew, 1, "Subtitle - en;02", "linkerfile0.txt"}}},
        Row{"EmptyTitles",
            {"-v", "()", "a.avi", "-a", "#1", "()", "a.avi", "-o", "o.divx"},
            {{kVideo, 1, "", "a.avi"}, {kAudio, 1, "", "a.avi"}}},
        Row{"ParenthesesInsideATitle",
            {"-v", "(Video", "(uncut)", "take", "2)", "a.avi", "-s", "#2", "(Subtitle (forced))", "a.avi", "-o",
             "o.divx"},
            {{kVideo, 1, "Video (uncut) take 2", "a.avi"}, {kSubtitle, 2, "Subtitle (forced)", "a.avi"}}},
        Row{"OptionsInsideATitleAndAPathInParentheses",
            {"-v", "(Video", "-s", "-o)", "(a).avi)", "-o", "o.divx"},
            {{kVideo, 1, "Video -s -o", "(a).avi)"}}},
        Row{"OutputFirst", {"-o", "o.divx", "-v", "(V)", "a.avi"}, {{kVideo, 1, "V", "a.avi"}}}}) {
    const auto parsed = ParseDivxMuxArguments(arguments);
    ASSERT_TRUE(parsed) << parsed.error().message;
    EXPECT_EQ(parsed->streams, streams) << name;
    EXPECT_EQ(parsed->output, "o.divx") << name;
  }
}

TEST(DivxMuxCommand, SaysWhatIsWrong) {
  struct Row {
    const char* name;
    Words arguments;
    const char* message;
  };
  for (const auto& [name, arguments, message] :
       {Row{"Nothing", {}, "(-v)"}, Row{"NoOutput", {"-v", "()", "a.avi"}, "(-o)"},
        Row{"OutputWithoutAPath", {"-v", "()", "a.avi", "-o"}, "missing after -o"},
        Row{"TwoVideos", {"-v", "()", "a", "-v", "()", "a", "-o", "o"}, "-v is given twice"},
        Row{"TwoOutputs", {"-v", "()", "a", "-o", "o", "-o", "p"}, "-o is given twice"},
        Row{"AudioWithoutANumber", {"-v", "()", "a", "-a", "()", "a", "-o", "o"}, "as #1"},
        Row{"NumberZero", {"-v", "()", "a", "-a", "#0", "()", "a", "-o", "o"}, "\"#0\""},
        Row{"NoNumber", {"-v", "()", "a", "-s", "#1x", "()", "a", "-o", "o"}, "\"#1x\""},
        Row{"NumberTooLarge", {"-v", "()", "a", "-a", "#99999999999", "()", "a", "-o", "o"}, "#999"},
        Row{"NoTitle", {"-v", "a.avi", "-o", "o"}, "after -v"},
        Row{"TitleNeverClosed", {"-v", "(Video", "a.avi", "-o", "o"}, "after -v"},
        Row{"OneParenthesisAlone", {"-v", "(", "a.avi", "-o", "o"}, "after -v"},
        Row{"NoPath", {"-o", "o", "-v", "(V)"}, "after -v (V)"},
        Row{"UnknownOption", {"-v", "()", "a", "-x", "-o", "o"}, "\"-x\""},
        Row{"UnknownProfile", {"-v", "()", "a", "-o", "o", "--profile", "tv"}, "\"tv\""}}) {
    const auto parsed = ParseDivxMuxArguments(arguments);
    ASSERT_FALSE(parsed) << name;
    EXPECT_THAT(parsed.error().message, HasSubstr(message)) << name;
  }
}

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
