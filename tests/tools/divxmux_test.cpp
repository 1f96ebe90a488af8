// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

#include "media/avi/avi_file.h"
#include "script/progress_file.h"
#include "script/tool_log.h"
#include "tests/support/run_program.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using Words = std::vector<std::string>;

class DivxMuxProgram : public testing::Test {
 protected:
  DivxMuxProgram() {
    const std::string command = "ffmpeg -nostdin -v error -f lavfi -i testsrc2=s=64x48:r=25:d=1 -f lavfi -i sine=d=1 " +
                                ("-map 0 -map 1 -map 1 -c:v mpeg4 -c:a pcm_u8 '" + film_) + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    // A picture of 2 x 2 pixels with 4 bits each, rows filled up to 4 bytes, and 16 colours.
    std::string bitmap("BM\x7E\0\0\0\0\0\0\0\x76\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\4", 29);
    bitmap.resize(0x76, '\0');
    folder_.Put("a.bmp", bitmap + std::string("\x12\0\0\0\x21\0\0\0", 8));
    folder_.Put("list.txt",
                "0 = (0, 0, 0)\r\n1 = (255, 255, 255)\r\n2 = (0, 0, 0)\r\n3 = (70, 70, 70)\r\n\r\n"
                "SUBPALETTE (0 1 2 3)\r\n00:00:00.100 00:00:00.900 a.bmp (100 460 101 461)\r\n");
  }

  ProgramRun Run(Words words, const std::string& out = "out.divx") {
    words.insert(words.end(), {"-o", folder_.File(out)});
    return RunProgram("DivXMux.exe", words);
  }

  Words Names(const std::string& file) const {
    Words names;
    const auto film = AviFile::Open(folder_.File(file));
    for (const AviStream& stream : film->Streams())
      names.push_back(stream.header.handler.substr(0, 4) + " " + stream.name);
    return names;
  }

  TestFolder folder_;
  std::string film_ = folder_.File("in film.avi");
  std::string list_ = folder_.File("list.txt");
};

TEST_F(DivxMuxProgram, PutsTheNamedStreamsTogether) {
  const auto run = Run({"-v", "(Video)", film_, "-a", "#2", "(Audio", "-", "Spanish)", folder_.File("./in film.avi"),
                        "-s", "(Subtitle - en;02)", list_});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("3 stream(s)"));
  EXPECT_THAT(Names("out.divx"), ElementsAre("FMP4 Video", EndsWith("Audio - Spanish"), "DXSB Subtitle - en;02"));
}

TEST_F(DivxMuxProgram, WhatItNoticesCanBeReadBack) {
  std::filesystem::resize_file(film_, std::filesystem::file_size(film_) / 2);
  const std::string list = folder_.Get("list.txt");
  const std::string two = folder_.Put("two.txt", list + list.substr(list.find("00:")));
  const auto run = Run({"-v", "()", film_, "-s", "()", two});
  EXPECT_EQ(run.status, 0);
  const Findings findings = ReadToolLog(folder_.Put("log", run.err)).findings;
  ASSERT_GE(findings.size(), 2U) << run.err;
  EXPECT_EQ(NameOf(findings[0].kind), "subtitle-changed");
  EXPECT_EQ(findings[0].file, two);
  EXPECT_EQ(NameOf(findings[1].kind), "damaged-video");
  EXPECT_EQ(findings[1].file, film_);
}

TEST_F(DivxMuxProgram, TheEnvironmentNamesProfileAndProgressFile) {
  setenv("DIVXMUX_PROFILE", "hardware", 1);
  setenv(kProgressVariable, folder_.File("progress").c_str(), 1);
  const auto run = Run({"-v", "()", film_, "-s", "(S)", list_});
  unsetenv("DIVXMUX_PROFILE");
  unsetenv(kProgressVariable);
  EXPECT_TRUE(ReadProgress(folder_.File("progress")));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Names("out.divx"), ElementsAre("FMP4 ", "divx S"));
}

TEST_F(DivxMuxProgram, CountsSubtitlesByTheirNamesWhereTheTitleSaysSo) {
  ASSERT_EQ(Run({"-v", "()", film_, "-s", "(Signs)", list_, "-s", "(Subtitle - el)", list_}, "two.divx").status, 0);
  const std::string two = folder_.File("two.divx");
  EXPECT_EQ(Run({"-v", "()", two, "-s", "#1", "(Subtitle - el)", two}).status, 0);
  EXPECT_THAT(Names("out.divx"), ElementsAre("FMP4 ", "DXSB Subtitle - el"));
  EXPECT_EQ(Run({"-v", "()", two, "-s", "#1", "()", two}).status, 0);
  EXPECT_THAT(Names("out.divx"), ElementsAre("FMP4 ", "DXSB Signs"));
}

TEST_F(DivxMuxProgram, TellsWhatFailed) {
  const auto fails = [&](const Words& words, int status, const std::string& message,
                         const std::string& out = "o.divx") {
    const auto run = Run(words, out);
    EXPECT_EQ(run.status, status) << message;
    EXPECT_THAT(run.err, HasSubstr(message));
    EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << run.err;
    EXPECT_FALSE(FileExists(folder_.File("o.divx"))) << message;
  };
  fails({"-v", film_}, 2, "--help");
  fails({"-v", "()", folder_.File("none.avi")}, 1, "none.avi: cannot be opened");
  fails({"-v", "()", list_}, 1, "list.txt");
  fails({"-v", "()", film_, "-a", "#3", "()", film_}, 1, "no audio stream #3");
  fails({"-v", "()", film_, "-s", "#1", "()", film_}, 1, "no subtitle stream #1");
  fails({"-v", "()", film_, "-a", "#1", "()", list_}, 1, "is not the video");
  fails({"-v", "()", film_, "-s", "()", film_}, 1, "not a .xsub, .txt or .idx file");
  fails({"-v", "()", film_, "-s", "()", folder_.File("none.xsub")}, 1, "none.xsub");
  fails({"-v", "()", film_}, 1, "No such file or directory", "no/o.divx");
  const std::string film = folder_.Get("in film.avi"), list = folder_.Get("list.txt");
  fails({"-v", "()", film_}, 1, "is the source itself", "./in film.avi");
  fails({"-v", "()", film_, "-s", "()", list_}, 1, "contains the subtitles", "./list.txt");
  EXPECT_EQ(folder_.Get("in film.avi"), film);
  EXPECT_EQ(folder_.Get("list.txt"), list);
}

TEST_F(DivxMuxProgram, KilledAtAnyMomentLeavesNothingBehind) {
  const std::string large = folder_.File("large.avi"), out = folder_.File("out.divx");
  const std::string make = "ffmpeg -nostdin -v error -f lavfi -i testsrc2=s=640x480:r=25:d=3 -c:v rawvideo '";
  ASSERT_EQ(std::system((make + large + "'").c_str()), 0);
  ASSERT_EQ(Run({"-v", "()", large}).status, 0);
  const auto whole = std::filesystem::file_size(out);
  int killed = 0;
  for (int milliseconds = 1; milliseconds < 100; milliseconds += 8) {
    std::filesystem::remove(out);
    const std::string mux = "exec >/dev/null 2>&1; timeout -s KILL " + std::to_string(milliseconds / 1e3);
    std::system((mux + " " + CAPTORIA_BIN + "/DivXMux.exe -v '()' '" + large + "' -o '" + out + "'").c_str());
    killed += FileExists(out) ? 0 : 1;
    EXPECT_EQ(FileExists(out) ? std::filesystem::file_size(out) : whole, whole);
    EXPECT_THAT(ListFiles(folder_.Path(), "*.new-*"), IsEmpty());
  }
  EXPECT_GT(killed, 0);
}

}  // namespace
}  // namespace captoria
