// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The whole way with the real tools; what was made is read by FFmpeg.
#include <gmock/gmock.h>
#include <signal.h>
#include <stdio.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "base/path_text.h"
#include "media/bmp/bmp_file.h"
#include "script/list_parser.h"
#include "tests/support/avi_maker.h"
#include "tests/support/other_process.h"
#include "tests/support/run_program.h"
#include "tests/support/vobsub_pair.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Words = std::vector<std::string>;

constexpr const char* kCues =
    "1\r\n00:00:00,200 --> 00:00:00,700\r\nHello\r\n<i>world</i>\r\n\r\n2\r\n00:00:01,040 --> 00:00:01,960\r\nBye\r\n";

Words Output(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  std::string text;
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) text += static_cast<char>(c);
  pclose(pipe);
  std::istringstream stream(text);
  Words lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<nlohmann::json> JsonLines(const std::string& text) {
  std::vector<nlohmann::json> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(nlohmann::json::parse(line));
  return lines;
}

class ConvertCommand : public testing::Test {
 protected:
  ConvertCommand() {
    const std::string make = "ffmpeg -nostdin -v error -f lavfi -i testsrc2=s=320x240:r=25:d=2 -f lavfi -i sine=d=2 " +
                             ("-c:v mpeg4 -c:a libmp3lame '" + folder_.File("film.avi") + "'");
    EXPECT_EQ(std::system(make.c_str()), 0);
  }

  // A copy of the film, and cues beside it when `cues` is not empty.
  std::string Film(const std::string& name, const std::string& cues = kCues) const {
    folder_.Put(name + ".avi", folder_.Get("film.avi"));
    if (!cues.empty()) folder_.Put(name + ".srt", cues);
    return folder_.File(name + ".avi");
  }

  ProgramRun Convert(Words arguments) const {
    arguments.insert(arguments.begin(), {"convert", "--data", folder_.File("data")});
    return RunProgram("captoria-cli", arguments);
  }

  std::string Temporary(const std::string& file) const { return JoinPath(folder_.File("data/tmp"), file); }
  Words Temporary() const { return ListFiles(folder_.File("data/tmp"), "?*.*"); }

  Words Hashes(const std::string& path) const {
    return Output("ffmpeg -nostdin -v error -i '" + path + "' -map 0:v -map 0:a -c copy -f streamhash -");
  }

  TestFolder folder_;
};

TEST_F(ConvertCommand, MakesAFilmThatForeignReadersUnderstand) {
  const std::string film = Film("my film");
  folder_.Put("my film.he.srt", "1\n00:00:00,500 --> 00:00:01,500\n\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D\n");
  const auto run = Convert({film, "--set", "Language0=iw HEBREW", "--set", "UseRightToLeftLang0=-1", "--keep-temp"});
  EXPECT_EQ(run.status, 0) << run.err;
  const std::string made = folder_.File("my film.divx");
  EXPECT_EQ(run.out, made + "\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(Hashes(made), Hashes(film));
  const std::string probe = "ffprobe -v error -of csv=p=0 -select_streams s ";
  EXPECT_THAT(Output(probe + "-show_entries stream=codec_name,nb_frames:stream_tags=title '" + made + "'"),
              ElementsAre("xsub,1,Subtitle - iw;02", "xsub,2,Subtitle - en;02"));
  EXPECT_THAT(Output(probe + "-show_frames -show_entries subtitle=start_display_time,end_display_time '" + made + "'"),
              testing::UnorderedElementsAre("500,1500", "200,700", "1040,1960"));

  // FFmpeg lays the pictures of the second track over black; they are the bitmaps at their listed places.
  const auto list = ReadConverterList(Temporary("linkerfile1.txt"));
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->cues.size(), 2u);
  for (const ListedCue& cue : list->cues) {
    const auto bitmap = ReadBmp(Temporary(cue.file));
    ASSERT_TRUE(bitmap);
    const std::string draw =
        "ffmpeg -nostdin -v error -y -canvas_size 720x576 -i '" + made +
        "' -filter_complex 'color=c=blue:s=720x576:r=25:d=2[b];[b][0:s:1]overlay,format=rgb24' -ss " +
        std::to_string(static_cast<double>(cue.times.show + 80) / 1000) + " -frames:v 1 -f rawvideo '" +
        folder_.File("frame") + "'";
    ASSERT_EQ(std::system(draw.c_str()), 0);
    const std::string frame = folder_.Get("frame");
    ASSERT_EQ(frame.size(), 720u * 576 * 3);
    int drawn = 0, wrong = 0;
    for (int y = 0; y < cue.height; ++y) {
      for (int x = 0; x < cue.width; ++x) {
        const auto entry = bitmap->pixels[static_cast<std::size_t>(y * bitmap->width + x)];
        const auto at = (static_cast<std::size_t>(cue.y + y) * 720 + static_cast<std::size_t>(cue.x + x)) * 3;
        const bool light = static_cast<unsigned char>(frame[at]) > 128;
        drawn += entry == 1 ? 1 : 0;
        wrong += light != (entry == 1) ? 1 : 0;
      }
    }
    EXPECT_GT(drawn, 100);
    EXPECT_EQ(wrong, 0) << "white where the letters are and nowhere else";
  }
}

TEST_F(ConvertCommand, BothTracksOfAListAndKeptStreamsSurviveAnotherRound) {
  const std::string film = Film("a");
  const auto mux = Convert({film, "--set", "UseBmpToXSub=0", "--set", "ForceVideoHeight=480"});
  EXPECT_EQ(mux.status, 0) << mux.err;
  folder_.Put("a.el.srt", kCues);
  std::filesystem::remove(folder_.File("a.srt"));
  const auto again = Convert(
      {folder_.File("a.divx"), "--set", "Language0=el GREEK", "--set", "UsePalMode1=-1", "--set", "ReplaceDivX=-1"});
  EXPECT_EQ(again.out, folder_.File("a.divx.divx") + "\n") << again.err;
  EXPECT_THAT(Output("ffprobe -v error -of csv=p=0 -show_entries stream=codec_name,nb_frames:stream_tags=title '" +
                     folder_.File("a.divx.divx") + "'"),
              ElementsAre("mpeg4,51", "mp3,78", "xsub,2,Subtitle - en;02", "xsub,2,Subtitle - el;02"));
  EXPECT_THAT(Temporary(), IsEmpty());
}

TEST_F(ConvertCommand, AVobSubFileGoesBetweenOthersAsItIs) {
  const std::string film = Film("a", "");
  SubtitlePicture picture(8, 2);
  std::ranges::fill(picture.pixels, std::uint8_t{1});
  VobSubPair pair;
  const auto begins = pair.AddPacks({{0, SpuBytes({.placed = {picture, 100, 400}})}});
  std::string index = "# VobSub index file, v7\nsize: 720x576\npalette: 000000";
  for (int i = 1; i < 16; ++i) index += ", ffffff";
  const std::string idx =
      pair.Save(folder_, index + "\nlangidx: 0\nid: en, index: 0\n" + VobSubPair::Timestamp(100, begins.front()));
  const std::string srt = folder_.Put("cues.srt", kCues);
  const auto run = Convert({film, "--subtitle", srt, "--subtitle", idx, "--subtitle", srt, "--set", "SubType1=7"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(
      Output("ffprobe -v error -of csv=p=0 -select_streams s -show_entries stream=nb_frames:stream_tags=title '" +
             folder_.File("a.divx") + "'"),
      ElementsAre("2,Subtitle - en;02", "1,Subtitle - en;07", "2,Subtitle - en;02"));
}

TEST_F(ConvertCommand, UnknownStreamsAreRemovedOnlyWhenAsked) {
  using namespace avi_maker;
  const std::string midi = List("strl", Piece("strh", StreamHeader("mids", 1, 1, 1)) + Piece("strf", "x"));
  const std::string content = Content() + Piece("02wb", "unknown");
  const std::string film = folder_.Put(
      "midi.avi", avi_maker::Film(content, Headers(VideoStream() + AudioStream() + midi), OldIndex(content, 4, {0})));
  folder_.Put("midi.srt", kCues);
  const auto refused = Convert({film});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("You want to remove them? No\n"));
  EXPECT_FALSE(FileExists(folder_.File("midi.divx")));
  const auto removed = Convert({film, "--remove-unknown"});
  EXPECT_EQ(removed.status, 0) << removed.err;
  const auto json =
      nlohmann::json::parse(RunProgram("captoria-cli", {"info", folder_.File("midi.divx"), "--json"}).out);
  ASSERT_EQ(json["streams"].size(), 3u);
  EXPECT_EQ(json["streams"][2]["name"], "Subtitle - en;02");
}

TEST_F(ConvertCommand, AFolderOfVideosGivesTheReportOfItsFailures) {
  Words videos{Film("good"), Film("bare", ""), Film("faulty", "1\n00:00:01 --> 2\nx\n")};
  videos.push_back(folder_.Put("broken.avi", "RIFF no film"));
  folder_.Put("broken.srt", kCues);
  videos.push_back(folder_.File("missing.avi"));
  videos.push_back(Film("last"));
  Words arguments = videos;
  const auto run = Convert(arguments);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, folder_.File("good.divx") + "\n" + folder_.File("last.divx") + "\n");
  EXPECT_THAT(run.err, HasSubstr("faulty.srt, line 2: "));
  EXPECT_THAT(run.err, HasSubstr("broken.avi: "));
  EXPECT_THAT(run.err,
              testing::EndsWith("Can not find any subtitles for \"" + videos[1] + "\"\nConvert failed with file \"" +
                                videos[2] + "\"\nConvert failed with file \"" + videos[3] +
                                "\"\nCan not find any subtitles for \"" + videos[4] + "\"\n"));
  arguments.push_back("--json");
  arguments.push_back("--quiet");
  const auto json = JsonLines(Convert(arguments).out);
  ASSERT_EQ(json.size(), 6u);
  EXPECT_EQ(json[0]["result"], folder_.File("good_.divx"));
  EXPECT_EQ(json[0]["status"], "made");
  EXPECT_EQ(json[0]["subtitles"][0]["cues"], 2);
  EXPECT_EQ(json[2]["warnings"][0]["kind"], "reading-stopped");
  EXPECT_EQ(json[2]["warnings"][0]["line"], 2);
  EXPECT_EQ(json[2]["subtitles"][0]["problem"]["line"], 2);
  EXPECT_TRUE(json[3]["result"].is_null());
  EXPECT_THAT(std::string{json[3]["error"]["message"]}, HasSubstr("broken"));
  EXPECT_EQ(json[4]["error"]["kind"], "not-found");
}

// A list of bitmaps gets a warning from the converter when cues are cut, and the muxer knows more.
TEST_F(ConvertCommand, WhatTheToolsNoticeReachesTheUser) {
  const std::string film = Film("Last Warning: Part 2",
                                "1\n00:00:00,200 --> 00:00:01,700\nHello\n\n2\n"
                                "00:00:01,040 --> 00:00:01,960\nBye\n");
  const auto run = Convert({film, "--json"});
  const auto json = JsonLines(run.out);
  ASSERT_EQ(json.size(), 1u) << run.err;
  ASSERT_EQ(json[0]["warnings"].size(), 1u) << run.out;
  EXPECT_EQ(json[0]["warnings"][0]["kind"], "subtitle-changed");
  EXPECT_EQ(json[0]["warnings"][0]["file"], folder_.File("Last Warning: Part 2.srt"));
  EXPECT_THAT(run.err, HasSubstr("captoria-cli: warning: "));
}

TEST_F(ConvertCommand, ADryRunShowsThePlanAndMakesNothing) {
  const std::string film = Film("a \xE9");
  folder_.Put("a \xE9.idx.srt", kCues);
  const auto text = Convert({film, "--dry-run", "--set", "VertPos0=77"});
  EXPECT_EQ(text.status, 0) << text.err;
  EXPECT_THAT(text.out, HasSubstr("becomes " + folder_.File("a \xE9.divx") + "\n"));
  EXPECT_THAT(text.out, HasSubstr("a \xE9.srt: UTF-8, 2 cues, en ENGLISH, "));
  const auto json = JsonLines(Convert({film, "--dry-run", "--json", "--set", "VertPos0=77"}).out);
  ASSERT_EQ(json.size(), 1u);
  EXPECT_EQ(json[0]["status"], "planned");
  EXPECT_EQ(json[0]["result"], "file://" + folder_.File("a%20%E9.divx")) << "a path that is not UTF-8";
  EXPECT_EQ(json[0]["subtitles"][0]["style"]["vertical"], 77);
  EXPECT_EQ(json[0]["streams"][1]["kept"], true);
  EXPECT_FALSE(FileExists(folder_.File("a \xE9.divx")));
  EXPECT_FALSE(FolderExists(folder_.File("data")));
}

TEST_F(ConvertCommand, OddNamesWorkOrAreRefusedBeforeAnythingIsWritten) {
  const std::string longest(250, 'x');
  for (const std::string& name : {std::string{"-dash"}, std::string{"a & b; $(touch hurt) %PATH% 'q' [1]"},
                                  std::string{"\xCE\xB1\xCE\xB2 \xD7\xA9"}, longest}) {
    const auto run = Convert({Film(name)});
    EXPECT_EQ(run.out, folder_.File(name + ".divx") + "\n") << run.err;
    EXPECT_EQ(run.status, 0);
  }
  const auto quoted = Convert({Film("a \"b\"")}), long_name = Convert({Film(longest + "y")});
  EXPECT_THAT(quoted.err, HasSubstr("a quotation mark or line break"));
  EXPECT_THAT(long_name.err, HasSubstr("longer than 255 bytes"));
  EXPECT_EQ(quoted.status + long_name.status, 2);
  EXPECT_THAT(Temporary(), IsEmpty());
}

TEST_F(ConvertCommand, UsageIsCheckedFirst) {
  const std::string film = Film("a");
  EXPECT_EQ(Convert({}).status, 2);
  EXPECT_EQ(Convert({film, film, "--subtitle", "a.srt"}).status, 2);
  EXPECT_EQ(Convert({film, "--set", "NoSuchKey=1"}).status, 2);
  EXPECT_EQ(Convert({film, "--set", "VertPos0"}).status, 2);
  EXPECT_FALSE(FileExists(folder_.File("a.divx")));
}

TEST_F(ConvertCommand, TwoAtOnceDoNotMeet) {
  const Words films{Film("a"), Film("b"), Film("c")};
  std::vector<ProgramRun> runs(films.size());
  {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < films.size(); ++i) threads.emplace_back([&, i] { runs[i] = Convert({films[i]}); });
  }
  for (const ProgramRun& run : runs) EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Output("cd '" + folder_.Path() + "'; md5sum a.divx b.divx c.divx | cut -d' ' -f1 | sort -u").size(), 1u);
}

TEST_F(ConvertCommand, AnInterruptEndsTheToolsAndLeavesNothing) {
  // A muxer that never ends, and says who it is.
  const std::string tool =
      folder_.Put("data/DivXMux.exe", "#!/bin/sh\necho $$ > '" + folder_.File("id") + "'\nwhile :; do sleep 1; done\n");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  const std::string film = Film("a");
  const std::string program = CAPTORIA_BIN "/captoria-cli", data = folder_.File("data");
  const pid_t child = fork();
  if (child == 0) {
    if (freopen("/dev/null", "w", stderr) != nullptr)
      execl(program.c_str(), program.c_str(), "convert", film.c_str(), "--data", data.c_str(), nullptr);
    _exit(127);
  }
  ASSERT_TRUE(Soon([&] { return !folder_.Get("id").empty(); }));
  kill(child, SIGINT);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 130);
  EXPECT_TRUE(IsOver(folder_.Get("id").substr(0, folder_.Get("id").find('\n'))));
  EXPECT_FALSE(FileExists(folder_.File("a.divx")));
  EXPECT_THAT(Temporary(), IsEmpty());
}

TEST_F(ConvertCommand, InfoShowsTheStreamTable) {
  const auto text = RunProgram("captoria-cli", {"info", folder_.File("film.avi")});
  EXPECT_THAT(text.out, HasSubstr("320 x 240 - PAL - 25 fps, Length: 00:00:02.0"));
  const auto json = nlohmann::json::parse(RunProgram("captoria-cli", {"info", folder_.File("film.avi"), "--json"}).out);
  EXPECT_EQ(json["system"], "PAL");
  EXPECT_EQ(json["height"], 576);
  EXPECT_EQ(json["streams"][1]["type"], "Audio");
  EXPECT_EQ(RunProgram("captoria-cli", {"info", folder_.Put("x", "no film")}).status, 1);
}

}  // namespace
}  // namespace captoria
