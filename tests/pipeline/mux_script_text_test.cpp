// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/mux_script_text.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "script/mux_script.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;

SubtitleTrack Track(const std::string& path, const std::string& language = "en ENGLISH", int type = 2) {
  SubtitleTrack track;
  track.path = path;
  track.style.Language = language;
  track.style.SubType = type;
  return track;
}

struct Taken {
  const char* name;
  const char* video;
  bool replace;
  std::vector<std::string> files;
  const char* output;
};

class OutputPaths : public testing::TestWithParam<Taken> {};

TEST_P(OutputPaths, StandBesideTheVideoUnderAFreeName) {
  const TestFolder folder;
  for (const std::string& file : GetParam().files) folder.Put(file, "");
  const auto in_making = [&](const std::string& path) { return path == folder.File("in making.divx"); };
  EXPECT_EQ(OutputPath(folder.File(GetParam().video), GetParam().replace, in_making), folder.File(GetParam().output));
}

INSTANTIATE_TEST_SUITE_P(
    Names, OutputPaths,
    testing::Values(Taken{"Free", "a.b.avi", false, {}, "a.b.divx"},
                    Taken{"Taken", "movie.avi", false, {"movie.divx", "movie_.divx"}, "movie__.divx"},
                    Taken{"InMaking", "in making.avi", false, {}, "in making_.divx"},
                    Taken{"Replaced", "movie.avi", true, {"movie.divx"}, "movie.divx"},
                    Taken{"ReplacedButNotTheSource", "movie.DivX", true, {"movie.DivX"}, "movie.divx.divx"},
                    Taken{"SourceIsTaken", "movie.divx", false, {"movie.divx"}, "movie_.divx"},
                    Taken{"NoExtension", "movie", false, {}, "movie.divx"}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(OutputPath, AFileOfTheRootAndABareNameKeepTheirPlace) {
  const auto none = [](const std::string&) { return false; };
  EXPECT_EQ(OutputPath("/no such film.avi", false, none), "/no such film.divx");
  EXPECT_EQ(OutputPath("no such film.avi", false, none), "no such film.divx");
}

class ScriptText : public testing::Test {
 protected:
  ScriptText() {
    script_.program_folder = "C:\\Tools\\Prog";
    script_.temp_folder = "C:\\Tools\\Prog\\tmp";
    script_.avi_path = "D:\\m\\movie.avi";
    script_.output = "D:\\m\\movie.divx";
  }

  // The script for these streams and tracks.
  std::string Text(const StreamTable& streams, const std::vector<SubtitleTrack>& tracks) {
    script_.streams = streams;
    script_.tracks = tracks;
    const std::string text = TextOf(script_);
    EXPECT_TRUE(ParseMuxScript(text)) << "what runs it has to understand it";
    return text;
  }

  MuxScript script_;
};

TEST_F(ScriptText, IsByteForByte) {
  script_.pal_mode1 = true;
  EXPECT_EQ(Text({{StreamType::Video, "x\r\nVideo"}, {StreamType::Audio, "y\r\nAudio"}}, {Track("a.srt")}),
            "C:\r\ncd \"C:\\Tools\\Prog\\tmp\"\r\nbmptoxsub.exe linkerfile0.txt aXsub0.xsub PALMODE1\r\n"
            "divxmux.exe -v (Video) \"D:\\m\\movie.avi\" -a #1 (Audio) \"D:\\m\\movie.avi\" "
            "-s (Subtitle - en;02) aXsub0.xsub -o \"D:\\m\\movie.divx\"\r\n");
}

TEST_F(ScriptText, ThreeTracksOneOfThemVobSubInBothForms) {
  const std::vector<SubtitleTrack> tracks{Track("a.srt"), Track("D:\\m\\b.IDX", "el GREEK"), Track("c.srt", "fa", 17)};
  const std::string idx = " -s (Subtitle - el;02) \"D:\\m\\b.IDX\"";
  EXPECT_THAT(Text({}, tracks),
              HasSubstr("tmp\"\r\nbmptoxsub.exe linkerfile0.txt aXsub0.xsub\r\nbmptoxsub.exe linkerfile2.txt "
                        "aXsub2.xsub\r\ndivxmux.exe -v () \"D:\\m\\movie.avi\" -s (Subtitle - en;02) aXsub0.xsub" +
                        idx + " -s (Subtitle - en;17) aXsub2.xsub -o "));
  script_.form = ListForm::Mux;
  script_.pause = true;
  EXPECT_THAT(Text({}, tracks), HasSubstr("tmp\"\r\ndivxmux.exe -v () \"D:\\m\\movie.avi\" -s (Subtitle - en;02) "
                                          "linkerfile0.txt" +
                                          idx +
                                          " -s (Subtitle - en;17) linkerfile2.txt -o \"D:\\m\\movie.divx\""
                                          "\r\npause\r\n"));
}

TEST_F(ScriptText, KeptStreamsAreCountedByTheirKindAndNamedWhenTheNameSaysWhatTheyAre) {
  const StreamTable streams{
      {StreamType::Video, "film.avi Video #1"},      {StreamType::Subtitle, "x\r\nSubtitle - English"},
      {StreamType::Unknown, "x\r\nAudio"},           {StreamType::Audio, "x\r\n  audio - Spanish "},
      {StreamType::Audio, "x\r\nfilm.avi Audio #2"}, {StreamType::Subtitle, "\r\nSubtitle \"a\"\n"}};
  const std::string video = " \"D:\\m\\movie.avi\"";
  EXPECT_THAT(Text(streams, {Track("")}), HasSubstr("divxmux.exe -v ()" + video + " -s #1 (Subtitle - English)" +
                                                    video + " -a #1 (audio - Spanish)" + video + " -a #2 ()" + video +
                                                    " -s #2 (Subtitle 'a' )" + video + " -o"));
}

TEST_F(ScriptText, NamesItCannotCarryAreRefused) {
  EXPECT_TRUE(CheckNames(script_));
  const std::vector<SubtitleTrack> tracks{Track("quo\"te.srt"), Track("line\nbreak.idx")};
  script_.tracks = std::span{tracks}.first(1);
  EXPECT_TRUE(CheckNames(script_)) << "a file that is read here is not named to anybody";
  script_.tracks = tracks;
  EXPECT_THAT(CheckNames(script_).error().message, HasSubstr("break.idx: a quotation mark"));
  script_.tracks = {};
  script_.avi_path = "a\"b.avi";
  EXPECT_EQ(CheckNames(script_).error().kind, ErrorKind::Unsupported);
  script_.avi_path = "a.avi";
  script_.output = "/m/" + std::string(251, 'x') + ".divx";
  EXPECT_THAT(CheckNames(script_).error().message, HasSubstr("longer than 255 bytes"));
}

}  // namespace
}  // namespace captoria
