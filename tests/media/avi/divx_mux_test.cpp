// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Films made by FFmpeg go in; what FFmpeg reads out of the result is compared.
#include "media/avi/divx_mux.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <stdio.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "media/avi/riff_header.h"
#include "platform/files.h"
#include "tests/support/avi_maker.h"
#include "tests/support/pack_b_frames.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsSubsetOf;
using Lines = std::vector<std::string>;

// What a command prints, by lines.
Lines Output(const std::string& command) {
  std::string text;
  FILE* pipe = popen(command.c_str(), "r");
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) text += static_cast<char>(c);
  pclose(pipe);
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

Lines Probe(const std::string& options, const std::string& path) {
  return Output("ffprobe -v error -of csv=p=0 " + options + " '" + path + "'");
}

// A line for each packet of picture and sound: its stream, time, size and hash.
Lines Packets(const std::string& path, const std::string& map = "-map 0:v? -map 0:a?") {
  Lines lines = Output("ffmpeg -nostdin -v quiet -i '" + path + "' " + map + " -c copy -f framehash -hash md5 -");
  std::erase_if(lines, [](const std::string& line) { return line.starts_with('#'); });
  std::ranges::sort(lines);
  return lines;
}

// Subtitles at given times, shown for half a second: a box of 8 x 2 pixels.
class Boxes final : public SubtitleSource {
 public:
  explicit Boxes(std::vector<std::int64_t> starts) : starts_(std::move(starts)) {}

  Size Frame() const override { return {720, 576}; }
  std::size_t Count() const override { return starts_.size(); }
  std::int64_t ShowTime(std::size_t index) const override { return starts_[index]; }
  Result<Bytes> Packet(std::size_t index) const override {
    ByteWriter packet;
    packet.Text("[" + Stamp(starts_[index]) + "-" + Stamp(starts_[index] + 500) + "]");
    packet.U16(8).U16(2).U16(100).U16(500).U16(107).U16(501).U16(2).Zeros(12);
    packet.U8(0).U8(1).U8(0).U8(2);
    if (index % 2 != 0) packet.U8(0);  // odd and even sizes
    return packet.Take();
  }

 private:
  static std::string Stamp(std::int64_t ms) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", static_cast<int>(ms / 3600000),
                  static_cast<int>(ms / 60000 % 60), static_cast<int>(ms / 1000 % 60), static_cast<int>(ms % 1000));
    return text;
  }

  std::vector<std::int64_t> starts_;
};

MuxStream Kept(int stream, const std::string& title = {}) { return {stream, nullptr, title}; }
MuxStream Subtitle(std::vector<std::int64_t> starts, const std::string& title) {
  return {-1, std::make_shared<Boxes>(std::move(starts)), title};
}

class DivxMux : public testing::Test {
 protected:
  // Two seconds by FFmpeg, 25 frames a second.
  std::string Film(const std::string& codecs, const std::string& name = "in.avi") {
    const std::string command =
        "ffmpeg -nostdin -v error -y -f lavfi -i testsrc2=s=160x120:r=25:d=2 -f lavfi -i sine=r=44100:d=2 -f lavfi -i "
        "sine=f=880:r=48000:d=2 " +
        codecs + " '" + folder_.File(name) + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return folder_.File(name);
  }

  Result<MuxReport> TryMux(const std::string& source, std::vector<MuxStream> streams, const std::string& output,
                           const std::function<void(MuxJob&)>& change = {}) {
    const auto film = AviFile::Open(source);
    if (!film) return tl::unexpected(film.error());
    MuxJob job{.film = *film, .streams = std::move(streams), .output = output};
    if (change) change(job);
    NoProgress progress;
    return Mux(job, progress);
  }

  std::string MuxTo(const std::string& name, const std::string& source, std::vector<MuxStream> streams,
                    const std::function<void(MuxJob&)>& change = {}) {
    const auto report = TryMux(source, std::move(streams), folder_.File(name), change);
    EXPECT_TRUE(report) << report.error().message;
    return folder_.File(name);
  }

  std::vector<MuxStream> All(const std::string& source) {
    std::vector<MuxStream> streams;
    const auto film = AviFile::Open(source);
    EXPECT_TRUE(film) << film.error().message;
    for (std::size_t i = 0; film && i < film->Streams().size(); ++i) streams.push_back(Kept(static_cast<int>(i)));
    return streams;
  }

  TestFolder folder_;
};

void Overwrite(const std::string& path, std::uint64_t at, const std::string& bytes) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(at)).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// The chunks of the video and of the other stream, in the order of the file: "vvsv".
std::string OrderOf(const std::string& path) {
  const auto film = AviFile::Open(path);
  EXPECT_TRUE(film) << film.error().message;
  std::string order;
  const auto walk = film->Chunks();
  for (auto chunk = walk->Next(); chunk && *chunk; chunk = walk->Next()) order += (*chunk)->stream == 0 ? 'v' : 's';
  return order;
}

struct Kind {
  const char* name;
  const char* codecs;
  std::function<void(const std::string& path)> damage = {};
};

class DivxMuxKind : public DivxMux, public testing::WithParamInterface<Kind> {};

TEST_P(DivxMuxKind, KeepsPacketsTimesAndHeaders) {
  const std::string source = Film(GetParam().codecs);
  if (GetParam().damage) GetParam().damage(source);
  auto streams = All(source);
  streams.push_back(Subtitle({0, 700, 1999}, "Subtitle - en;02"));
  const std::string plain = MuxTo("plain.divx", source, streams);
  const std::string parts = MuxTo("parts.divx", source, streams, [](MuxJob& job) { job.riff_limit = 20000; });
  const std::string again = MuxTo("again.divx", parts, All(parts));
  const Lines packets = Packets(source);
  for (const std::string& made : {plain, parts, again}) {
    EXPECT_EQ(Packets(made), packets) << made;
    EXPECT_THAT(Probe("-select_streams s -show_frames -show_entries "
                      "stream=codec_name,nb_frames:stream_tags=title:subtitle=start_display_time,end_display_time",
                      made),
                ElementsAre("0,500", "700,1200", "1999,2499", "xsub,3,Subtitle - en;02"));
    const auto before = AviFile::Open(source), after = AviFile::Open(made);
    ASSERT_TRUE(before && after);
    for (std::size_t i = 0; i < before->Streams().size(); ++i) {
      EXPECT_EQ(after->Streams()[i].header_bytes, before->Streams()[i].header_bytes) << i;
      EXPECT_EQ(after->Streams()[i].format, before->Streams()[i].format) << i;
    }
  }
}

// The letters of the index's last entries are spoilt, then all of it.
void BreakIndex(const std::string& path) {
  const std::string content = ReadWholeFile(path).value_or("");
  const auto index = content.rfind("idx1");
  ASSERT_NE(index, content.npos);
  Overwrite(path, index + 8, std::string(content.size() - index - 8, '\x5A'));
}

INSTANTIATE_TEST_SUITE_P(
    Films, DivxMuxKind,
    testing::Values(Kind{"Mpeg4WithBFramesAndMp3Cbr", "-map 0 -map 1 -c:v mpeg4 -bf 2 -c:a libmp3lame -b:a 96k"},
                    Kind{"Mpeg4AndMp3Vbr", "-map 0 -map 1 -c:v mpeg4 -vtag DX50 -c:a libmp3lame -q:a 4"},
                    Kind{"MotionJpegAndPcm", "-map 0 -map 1 -c:v mjpeg -c:a pcm_s16le"},
                    Kind{"RawVideoAndAc3", "-map 0 -map 2 -c:v rawvideo -pix_fmt bgr24 -c:a ac3"},
                    Kind{"PalettedVideo", "-map 0 -c:v rawvideo -pix_fmt pal8"},
                    Kind{"H264AndMp2", "-map 0 -map 2 -c:v libx264 -c:a mp2"}, Kind{"NoSound", "-map 0 -c:v mpeg4"},
                    Kind{"TwoSounds", "-map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 libmp3lame -c:a:1 ac3"},
                    Kind{"SoundFirst", "-map 1 -map 0 -c:v mpeg4 -c:a pcm_u8"},
                    Kind{"OtherFrameRate", "-map 0 -map 1 -r 30000/1001 -c:v mpeg4 -g 5 -c:a libmp3lame"},
                    Kind{"PackedBFrames", "-map 0 -map 1 -c:v mpeg4 -bf 1 -c:a libmp3lame", PackBFrames},
                    Kind{"IndexOverwritten", "-map 0 -map 1 -c:v mpeg4 -c:a libmp3lame", BreakIndex}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST_F(DivxMux, TruncatedFilmIsKeptAsFarAsItGoes) {
  const std::string source = Film("-map 0 -map 1 -c:v mpeg4 -c:a libmp3lame");
  std::filesystem::resize_file(source, std::filesystem::file_size(source) * 6 / 10);
  const auto report = TryMux(source, {Kept(0), Kept(1)}, folder_.File("out.divx"));
  ASSERT_TRUE(report) << report.error().message;
  EXPECT_FALSE(report->findings.empty());
  const Lines before = Packets(source), after = Packets(folder_.File("out.divx"));
  EXPECT_THAT(after, IsSubsetOf(before));
  EXPECT_GE(after.size() + 1, before.size()) << "only the chunk that breaks off is missing";
  const auto film = AviFile::Open(folder_.File("out.divx"));
  const auto frames = std::ranges::count(OrderOf(folder_.File("out.divx")), 'v');
  EXPECT_LT(frames, 40);
  EXPECT_EQ(film->Streams()[0].header.length, frames) << "a length that is no longer true would make players wait";
}

TEST_F(DivxMux, EmptyChunksKeepTheirPlaceInTime) {
  // A frame that repeats the one before is a chunk without data; the size of some is set to 0, the rest becomes JUNK.
  const std::string source = Film("-map 0 -c:v mjpeg");
  const auto film = AviFile::Open(source);
  const auto walk = film->Chunks();
  int number = 0;
  for (auto chunk = walk->Next(); chunk && *chunk; chunk = walk->Next(), ++number) {
    if (number % 10 != 3) continue;
    ByteWriter header;
    header.U32(0).Text("JUNK").U32(((*chunk)->size + 1) / 2 * 2 - 8);
    Overwrite(source, (*chunk)->position + 4, std::string(header.Written().begin(), header.Written().end()));
  }
  BreakIndex(source);
  const std::string made = MuxTo("out.divx", source, {Kept(0), Subtitle({100}, "")});
  EXPECT_EQ(Packets(made).size(), 45);
  EXPECT_EQ(Packets(made), Packets(source));
}

TEST_F(DivxMux, ADroppedStreamRenumbersTheOthers) {
  const std::string source = Film("-map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 libmp3lame -c:a:1 ac3");
  const std::string made = MuxTo("out.divx", source, {Kept(2, "Sound"), Subtitle({300}, "One"), Kept(0)});
  EXPECT_THAT(Probe("-show_entries stream=codec_name:stream_tags=title", made),
              ElementsAre("ac3,Sound", "xsub,One", "mpeg4"));
  EXPECT_EQ(Packets(made, "-map 0:2 -map 0:0"), Packets(source, "-map 0:0 -map 0:2"));
}

TEST_F(DivxMux, OurOwnFilmTakesMoreStreamsAndKeepsNames) {
  const std::string source = Film("-map 0 -map 1 -metadata:s:v:0 title=Picture -c:v mpeg4 -c:a libmp3lame");
  const std::string first =
      MuxTo("1.divx", source, {Kept(0), Kept(1, "Audio"), Subtitle({100, 900}, "Subtitle - en;02")});
  const std::string second = MuxTo("2.divx", first, {Kept(0), Kept(1), Kept(2), Subtitle({500}, "Subtitle - el;02")});
  EXPECT_THAT(Probe("-show_entries stream=codec_name,nb_frames:stream_tags=title", second),
              ElementsAre("mpeg4,51,Picture", "mp3,78,Audio", "xsub,2,Subtitle - en;02", "xsub,1,Subtitle - el;02"));
  EXPECT_EQ(Packets(second, "-map 0:0 -map 0:1 -map 0:2"), Packets(first, "-map 0"));
}

TEST_F(DivxMux, APacketStands520MillisecondsBeforeItsFrame) {
  struct Rate {
    const char* name;
    std::uint32_t period, rate;  // of the main header in microseconds, of the stream in frames a second
    std::string order;
  };
  const std::string at_25 = "ss" + std::string(12, 'v') + "ss" + std::string(38, 'v') + "s";
  const std::string at_50 = "ss" + std::string(24, 'v') + "svs" + std::string(25, 'v') + "s";
  const std::string source = Film("-map 0 -c:v mpeg4"), whole = folder_.Get("in.avi");
  for (const Rate& row : {Rate{"the stream's rate", 40000, 50, at_50}, Rate{"the main header's", 20000, 0, at_50},
                          Rate{"neither, so 25", 0, 0, at_25}}) {
    Overwrite(source, whole.find("avih") + 8, avi_maker::Number(row.period));
    Overwrite(source, whole.find("strh") + 28, avi_maker::Numbers({row.rate == 0 ? 0U : 1U, row.rate}));
    EXPECT_EQ(OrderOf(MuxTo("out.divx", source, {Kept(0), Subtitle({0, 500, 1000, 1039, 9000}, "s")})), row.order)
        << row.name;
  }
}

TEST_F(DivxMux, HardwareProfileWritesTheMakersForm) {
  const std::string source = Film("-map 0 -c:v mpeg4");
  const auto hardware = [](MuxJob& job) { job.profile = PlayerProfile::Hardware; };
  const std::string made = MuxTo("out.divx", source, {Kept(0), Subtitle({0, 500}, "s")}, hardware);
  const auto film = AviFile::Open(made);
  ASSERT_TRUE(film);
  const AviStreamHeader& header = film->Streams()[1].header;
  EXPECT_EQ(header.handler, "divx");
  EXPECT_EQ(header.flags, 1);
  EXPECT_EQ(header.scale + header.rate, 0);
  EXPECT_EQ(header.suggested_buffer_size, 58);
  EXPECT_THAT(header.frame, ElementsAre(0, 0, 720, 576));
  EXPECT_THAT(Probe("-select_streams s -show_entries stream=codec_name,width,height", made),
              ElementsAre("xsub,720,576"));
}

TEST_F(DivxMux, EveryIndexEntryLeadsToItsChunk) {
  const std::string source = Film("-map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 libmp3lame -c:a:1 pcm_s16le");
  for (const std::uint64_t limit : {std::uint64_t{1} << 30, std::uint64_t{20000}}) {
    const std::string made = MuxTo("out.divx", source, {Kept(0), Kept(1), Kept(2), Subtitle({0, 500, 1500}, "s")},
                                   [&](MuxJob& job) { job.riff_limit = limit; });
    const std::string content = folder_.Get("out.divx");
    const auto number = [&](std::size_t at) {
      return ByteReader(ByteView{reinterpret_cast<const std::uint8_t*>(content.data()) + at, 4}).U32();
    };
    const std::size_t movi = content.find("movi"), index = content.find("idx1");
    ASSERT_NE(index, content.npos);
    EXPECT_EQ(movi + number(movi - 4), index) << "the chunks end where the index begins";
    for (std::size_t at = index + 8; at < index + 8 + number(index + 4); at += 16) {
      const std::size_t chunk = movi + number(at + 8);
      EXPECT_EQ(content.substr(chunk, 4), content.substr(at, 4));
      EXPECT_EQ(number(chunk + 4), number(at + 12));
    }
    std::size_t riff = 0, riffs = 0;
    for (; riff < content.size(); riff += 8 + number(riff + 4), ++riffs) EXPECT_EQ(content.substr(riff, 4), "RIFF");
    EXPECT_EQ(riff, content.size());
    EXPECT_EQ(riffs == 1, limit > 20000);
    if (riffs == 1) continue;

    const auto film = AviFile::Open(made);
    std::size_t super = 0;
    for (const AviStream& stream : film->Streams()) {
      super = content.find("indx", super + 4);
      EXPECT_EQ(number(super + 12), riffs);
      std::uint32_t length = 0;
      for (std::size_t entry = super + 32; entry < super + 32 + 16 * riffs; length += number(entry + 12), entry += 16) {
        const std::size_t part = number(entry), base = number(part + 20);
        EXPECT_EQ(content.substr(part, 2), "ix");
        EXPECT_EQ(number(part + 4) + 8, number(entry + 8));
        for (std::size_t at = part + 32; at < part + number(entry + 8); at += 8) {
          const std::size_t chunk = base + number(at) - 8;
          EXPECT_EQ(content.substr(chunk, 4), content.substr(part + 16, 4));
          EXPECT_EQ(number(chunk + 4), number(at + 4) & 0x7FFFFFFF);
        }
      }
      EXPECT_EQ(length, stream.header.length) << "the durations add up to the length by FFmpeg";
    }
  }
}

class StopAt final : public JobProgress {
 public:
  explicit StopAt(std::function<bool()> act) : act_(std::move(act)) {}
  bool Report(std::size_t, std::size_t) override { return act_(); }

 private:
  std::function<bool()> act_;
};

TEST_F(DivxMux, AFailureLeavesNothingBehind) {
  const std::string source = Film("-map 0 -c:v rawvideo");
  const std::string old = folder_.Put("out.divx", "an older film");
  const auto film = AviFile::Open(source);
  const auto fails_with = [&](const std::function<bool()>& act, ErrorKind kind, const std::string& text) {
    StopAt progress(act);
    const auto report = Mux({.film = *film, .streams = {Kept(0), Subtitle({0}, "")}, .output = old}, progress);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().kind, kind);
    EXPECT_THAT(report.error().message, HasSubstr(text));
    EXPECT_EQ(folder_.Get("out.divx"), "an older film");
    EXPECT_THAT(ListFiles(folder_.Path(), "*"), ElementsAre("in.avi", "out.divx"));
  };
  fails_with([] { return false; }, ErrorKind::Cancelled, "out.divx");

  // A file that may not grow stands for a disk that is full.
  signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{300000, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  fails_with([] { return true; }, ErrorKind::Unwritable, "out.divx: cannot be written: File too large");
  setrlimit(RLIMIT_FSIZE, &limit);

  const auto cut = [&] { return truncate(source.c_str(), 500000) == 0; };
  fails_with(cut, ErrorKind::Damaged, "in.avi: ends at byte");
}

TEST_F(DivxMux, RefusesWhatCannotBe) {
  const std::string source = Film("-map 0 -c:v mpeg4"), out = folder_.File("out.divx");
  const std::string before = folder_.Get("in.avi");
  std::filesystem::create_hard_link(source, folder_.File("same.divx"));
  const auto message = [&](std::vector<MuxStream> streams, const std::string& output) {
    const auto report = TryMux(source, std::move(streams), output);
    return report ? "done" : report.error().message;
  };
  EXPECT_THAT(message({Kept(0)}, source), HasSubstr("the source itself"));
  EXPECT_THAT(message({Kept(0)}, folder_.File("same.divx")), HasSubstr("the source itself"));
  EXPECT_THAT(message({Kept(0)}, folder_.Path()), HasSubstr("is a folder"));
  EXPECT_THAT(message({Kept(0)}, folder_.File("none/out.divx")), HasSubstr("No such file or directory"));
  EXPECT_THAT(message({}, out), HasSubstr("no stream"));
  EXPECT_THAT(message({Kept(0), Kept(1)}, out), HasSubstr("stream 1 does not exist"));
  EXPECT_THAT(message({Kept(0), Kept(0)}, out), HasSubstr("stream 0 is given twice"));
  EXPECT_THAT(message({Kept(0), Subtitle({}, "Empty")}, out), HasSubstr("\"Empty\" contains no subtitle"));
  EXPECT_EQ(folder_.Get("in.avi"), before);
  EXPECT_FALSE(FileExists(out));
}

// Writes five gigabytes, so it runs only when asked for.
TEST_F(DivxMux, FilmsBeyondFourGigabytesStayWhole) {
  if (std::getenv("CAPTORIA_LARGE_TESTS") == nullptr) GTEST_SKIP() << "CAPTORIA_LARGE_TESTS is not set";
  const std::string head = Film("-map 0 -c:v rawvideo -pix_fmt bgr24"), source = folder_.File("large.avi");
  const auto small = AviFile::Open(head);
  constexpr std::uint32_t kFrame = 57600;  // 160 x 120 x 3
  constexpr std::uint32_t kFrames = 90'000, kInRiff = 18'000;
  // Frames of holes: only their headers take room on the disk.
  AviLayout layout{.main = small->Main(), .streams = {small->Streams()[0]}, .extras = {}};
  const Bytes first = AviHeader(layout, std::vector<AviStreamIndex>(1), {.riff = 0x40000000, .movi = 0x3FFFF000});
  folder_.Put("large.avi", std::string(first.begin(), first.end()));
  std::uint64_t at = first.size();
  for (std::uint32_t frame = 0; frame < kFrames; ++frame) {
    ByteWriter header;
    const std::uint32_t movi = 4 + kInRiff * (kFrame + 8);
    if (frame > 0 && frame % kInRiff == 0)
      header.Text("RIFF").U32(movi + 12).Text("AVIX").Text("LIST").U32(movi).Text("movi");
    header.Text("00db").U32(kFrame);
    Overwrite(source, at, std::string(header.Written().begin(), header.Written().end()));
    at += header.Size() + kFrame;
  }
  std::filesystem::resize_file(source, at);

  const std::string made = MuxTo("out.divx", source, {Kept(0), Subtitle({0, 3'599'000}, "Subtitle - en;02")});
  EXPECT_GT(std::filesystem::file_size(made), std::uint64_t{4} << 30);
  EXPECT_THAT(Probe("-select_streams v -count_packets -show_entries stream=nb_read_packets", made),
              ElementsAre("90000"));
  EXPECT_THAT(Probe("-select_streams s -count_packets -show_entries stream=nb_read_packets", made), ElementsAre("2"));
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  EXPECT_LT(usage.ru_maxrss, 48 * 1024);
}

}  // namespace
}  // namespace captoria
