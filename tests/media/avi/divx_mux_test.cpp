// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Films made by FFmpeg go in; what FFmpeg reads out of the result is compared.
#include "media/avi/divx_mux.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include "media/xsub/xsub_packet.h"
#include "platform/files.h"
#include "tests/support/avi_maker.h"
#include "tests/support/command_output.h"
#include "tests/support/film_indices.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using namespace avi_maker;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSubsetOf;
using Lines = std::vector<std::string>;

Lines Probe(const std::string& options, const std::string& path) {
  return OutputOf("ffprobe -v error -of csv=p=0 " + options + " '" + path + "'");
}

// A line for each packet of picture and sound: its stream, time, size and hash.
Lines Packets(const std::string& path, const std::string& map = "-map 0:v? -map 0:a?") {
  Lines lines = OutputOf("ffmpeg -nostdin -v quiet -i '" + path + "' " + map + " -c copy -f framehash -hash md5 -");
  std::erase_if(lines, [](const std::string& line) { return line.starts_with('#'); });
  std::ranges::sort(lines);
  return lines;
}

constexpr const char* kKeyFlags = "-fflags +noparse -select_streams v -show_entries packet=flags";

// Subtitles at given times, shown for half a second: a box of 8 x 2 pixels.
class Boxes final : public SubtitleSource {
 public:
  explicit Boxes(std::vector<std::int64_t> starts) : starts_(std::move(starts)) {}

  Size Frame() const override { return {720, 576}; }
  std::size_t Count() const override { return starts_.size(); }
  std::int64_t ShowTime(std::size_t index) const override { return starts_[index]; }
  Result<Bytes> Packet(std::size_t index) const override {
    SubtitlePicture picture(8, 2);
    picture.pixels[0] = index % 2;  // odd and even sizes: 55 and 56 bytes
    return EncodeXsub({.times = {starts_[index], starts_[index] + 500}, .picture = {picture, 100, 500}}, Frame());
  }

 private:
  std::vector<std::int64_t> starts_;
};

MuxStream Kept(int stream, const std::string& title = {}) { return {stream, nullptr, title}; }
MuxStream Subtitle(std::vector<std::int64_t> starts, const std::string& title) {
  return {-1, std::make_shared<Boxes>(std::move(starts)), title};
}

class DivxMux : public testing::Test {
 protected:
  // Two seconds by FFmpeg, 25 frames a second.
  std::string Film(const std::string& codecs) {
    const std::string command =
        "ffmpeg -nostdin -v error -y -f lavfi -i testsrc2=s=160x120:r=25:d=2 -f lavfi -i sine=r=44100:d=2 -f lavfi -i "
        "sine=f=880:r=48000:d=2 " +
        codecs + " '" + folder_.File("in.avi") + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return folder_.File("in.avi");
  }

  Result<MuxReport> TryMux(const std::string& source, std::vector<MuxStream> streams, const std::string& output,
                           const std::function<void(MuxJob&)>& change = {}) {
    const auto film = AviFile::Open(source);
    if (!film) return tl::unexpected(film.error());
    MuxJob job{.source = *film, .streams = std::move(streams), .output = output};
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
  std::string content = folder_.Get("in.avi");
  const std::string bare = folder_.Put("bare.avi", content.replace(content.rfind("idx1"), 4, "JUNK"));
  const Lines keys = Probe(kKeyFlags, source);
  EXPECT_EQ(Probe(kKeyFlags, MuxTo("unindexed.divx", bare, All(bare))), keys) << "by look";
  if (GetParam().damage) GetParam().damage(source);
  auto streams = All(source);
  streams.push_back(Subtitle({0, 700, 1999}, "Subtitle - en;02"));
  const std::string plain = MuxTo("plain.divx", source, streams);
  const std::string parts = MuxTo("parts.divx", source, streams, [](MuxJob& job) { job.riff_limit = 20000; });
  const std::string again = MuxTo("again.divx", parts, All(parts));
  const Lines packets = Packets(source);
  for (const std::string& made : {plain, parts, again}) {
    EXPECT_EQ(Packets(made), packets) << made;
    EXPECT_TRUE(GetParam().damage || Probe(kKeyFlags, made) == keys) << made;
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

// Every tenth picture becomes a chunk without data, which repeats the picture before; its data becomes JUNK.
void EmptyChunks(const std::string& path) {
  const auto film = AviFile::Open(path);
  const auto walk = film->Chunks();
  int number = 0;
  for (auto chunk = walk->Next(); chunk && *chunk; chunk = walk->Next(), ++number) {
    if (number % 10 != 3) continue;
    Overwrite(path, (*chunk)->position + 4, Number(0) + "JUNK" + Number(((*chunk)->size + 1) / 2 * 2 - 8));
  }
  BreakIndex(path);
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
                    Kind{"MsMpeg4", "-map 0 -c:v msmpeg4 -g 9"},
                    Kind{"H264WithOpenGroups", "-map 0 -c:v libx264 -g 9 -bf 2 -x264-params open-gop=1"},
                    Kind{"IndexOverwritten", "-map 0 -map 1 -c:v mpeg4 -c:a libmp3lame", BreakIndex},
                    Kind{"ChunksWithoutData", "-map 0 -c:v mjpeg", EmptyChunks}),
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
  const auto frames = std::ranges::count(OrderOf(folder_.File("out.divx")), 'v');
  EXPECT_LT(frames, 40);
  EXPECT_EQ(AviFile::Open(folder_.File("out.divx"))->Streams()[0].header.length, frames)
      << "a length that is no longer true would make players wait";
}

TEST_F(DivxMux, ADroppedStreamRenumbersTheOthers) {
  const std::string source = Film("-map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 libmp3lame -c:a:1 ac3");
  const std::string made = MuxTo("out.divx", source, {Kept(2, "Sound"), Subtitle({300}, "One"), Kept(0)});
  EXPECT_THAT(Probe("-show_entries stream=codec_name:stream_tags=title", made),
              ElementsAre("ac3,Sound", "xsub,One", "mpeg4"));
  EXPECT_EQ(Packets(made, "-map 0:2 -map 0:0"), Packets(source, "-map 0:0 -map 0:2"));
}

TEST_F(DivxMux, OurOwnFilmTakesMoreStreamsAndKeepsNames) {
  const std::string source =
      Film("-map 0 -map 1 -metadata title=Film -metadata:s:v:0 title=Picture -c:v mpeg4 -c:a libmp3lame");
  const std::string first =
      MuxTo("1.divx", source, {Kept(0), Kept(1, "Audio"), Subtitle({100, 900}, "Subtitle - en;02")});
  const std::string second = MuxTo("2.divx", first, {Kept(0), Kept(1), Kept(2), Subtitle({500}, "Subtitle - el;02")});
  EXPECT_THAT(Probe("-show_entries stream=codec_name,nb_frames:stream_tags=title", second),
              ElementsAre("mpeg4,51,Picture", "mp3,78,Audio", "xsub,2,Subtitle - en;02", "xsub,1,Subtitle - el;02"));
  EXPECT_EQ(Packets(second, "-map 0:0 -map 0:1 -map 0:2"), Packets(first, "-map 0"));
  EXPECT_THAT(Probe("-show_entries format_tags=title", second), ElementsAre("Film"));
}

TEST_F(DivxMux, APacketStands520MillisecondsBeforeItsFrame) {
  struct Rate {
    const char* name;
    std::uint32_t period, rate, start;  // main header: microseconds; stream: frames a second and first frame
    std::string order;
  };
  const std::string at_25 = "ss" + std::string(12, 'v') + "ss" + std::string(38, 'v') + "s";
  const std::string at_50 = "ss" + std::string(24, 'v') + "svs" + std::string(25, 'v') + "s";
  const std::string source = Film("-map 0 -c:v mpeg4"), whole = folder_.Get("in.avi");
  const std::string started = "ss" + std::string(14, 'v') + "svs" + std::string(35, 'v') + "s";
  for (const Rate& row : {Rate{"the stream's rate", 40000, 50, 0, at_50}, Rate{"the main header's", 20000, 0, 0, at_50},
                          Rate{"neither, so 25", 0, 0, 0, at_25}, Rate{"a late start", 0, 50, 10, started}}) {
    Overwrite(source, whole.find("avih") + 8, Number(row.period));
    Overwrite(source, whole.find("strh") + 28, Numbers({row.rate == 0 ? 0U : 1U, row.rate, row.start}));
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
  EXPECT_EQ(header.scale + header.rate + header.quality, 0);
  EXPECT_EQ(header.suggested_buffer_size, 56);
  EXPECT_THAT(header.frame, ElementsAre(0, 0, 720, 576));
  EXPECT_THAT(Probe("-select_streams s -show_entries stream=codec_name,width,height", made),
              ElementsAre("xsub,720,576"));
  const std::string content = folder_.Get("out.divx");
  EXPECT_EQ(FilmIndices(content).NumberAt(content.find("01sb", content.find("idx1")) + 4), 0) << "no key frames";
}

TEST_F(DivxMux, EveryIndexEntryLeadsToItsChunk) {
  const std::string palette = Piece("00dc", KeyPicture(9)) + Piece("00pc", "pal!") + Piece("00dc", DeltaPicture(7)) +
                              Piece("00dc", DeltaPicture(6));
  const std::string small = folder_.Put("small.avi", avi_maker::Film(palette + Piece("01wb", "abc")));
  const std::string large = Film("-map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 libmp3lame -c:a:1 pcm_s16le");
  for (const auto& [source, limit] : {std::pair{small, 1U << 30}, {small, 500U}, {large, 1U << 30}, {large, 20000U}}) {
    auto streams = All(source);
    streams.push_back(Subtitle({0, 500, 1500}, "s"));
    const std::string made =
        MuxTo("out.divx", source, streams, [&, most = limit](MuxJob& job) { job.riff_limit = most; });
    const std::string content = folder_.Get("out.divx");
    const FilmIndices indices(content);
    const std::size_t riffs = indices.CheckRiffs();
    EXPECT_EQ(riffs == 1, limit == 1U << 30);
    indices.CheckIdx1();
    if (riffs == 1) continue;

    const auto film = AviFile::Open(made);
    std::size_t super = 0;
    std::uint32_t frames = 0;
    for (const AviStream& stream : film->Streams()) {
      super = content.find("indx", super + 4);
      const std::uint32_t length = indices.CheckSuperIndex(super, riffs);
      EXPECT_EQ(length, stream.header.length) << "the durations add up to the length in the source";
      if (frames == 0) frames = length;
    }
    EXPECT_LT(film->Main().total_frames, frames) << "only those of the first RIFF";
    EXPECT_EQ(indices.NumberAt(content.find("dmlh") + 8), frames);
  }
}

TEST_F(DivxMux, MoreChunksThanAnIndexHoldsGoIntoSeveralRiffs) {
  std::string chunks = Piece("00dc", KeyPicture(9));
  for (int i = 0; i < 1 << 20; ++i) chunks += Piece("01wb", "");
  const std::string source = folder_.Put("in.avi", avi_maker::Film(chunks, Headers(), ""));
  const std::string order = OrderOf(source);
  EXPECT_EQ(order.size(), (1 << 20) + 1);
  EXPECT_EQ(OrderOf(MuxTo("out.divx", source, All(source))), order);
  EXPECT_EQ(FilmIndices(folder_.Get("out.divx")).CheckRiffs(), 2);
}

TEST_F(DivxMux, MainHeaderDescribesTheResult) {
  const std::string source = Film("-map 0 -c:v mpeg4"), whole = folder_.Get("in.avi");
  Overwrite(source, whole.find("avih") + 8, Numbers({40000, 1000, 512, 0x20}));
  const auto film = AviFile::Open(MuxTo("out.divx", source, {Kept(0), Subtitle({0, 500}, "")}));
  EXPECT_EQ(film->Main().flags, 0x110) << "an index that need not be used, interleaved";
  EXPECT_EQ(film->Main().padding_granularity, 0);
  EXPECT_EQ(film->Main().max_bytes_per_second, 1000 + (8 + 55 + 8 + 56) / 2) << "two packets more in two seconds";
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
    const auto report = Mux({.source = *film, .streams = {Kept(0), Subtitle({0}, "")}, .output = old}, progress);
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
  EXPECT_THAT(message(std::vector(101, Subtitle({0}, "")), out), HasSubstr("at most 100 streams"));
  EXPECT_THAT(message({Kept(0), Kept(1)}, out), HasSubstr("stream 1 does not exist"));
  EXPECT_THAT(message({Kept(0), Kept(0)}, out), HasSubstr("stream 0 is given twice"));
  EXPECT_THAT(message({Kept(0), Subtitle({}, "Empty")}, out), HasSubstr("\"Empty\" contains no subtitle"));
  EXPECT_EQ(folder_.Get("in.avi"), before);
  EXPECT_FALSE(FileExists(out));
}

TEST_F(DivxMux, AFilmWithoutAFrameIsNotWritten) {
  const std::string frame = Piece("00dc", avi_maker::KeyPicture(9)), sound = Piece("01wb", "abc");
  const std::string out = folder_.File("out.divx");
  for (const auto& [name, content, streams, message] : std::vector<std::array<std::string, 4>>{
           {"nothing", "", "both", "contains no data of these streams"},
           {"only sound", sound, "both", "contains no whole frame"},
           {"only a palette", sound + Piece("00pc", "pal!"), "both", "contains no whole frame"},
           {"the frame breaks off", sound + frame.substr(0, 14), "both", "contains no whole frame"},
           {"only sound is wanted", sound, "sound", ""},
           {"a frame without data", sound + Piece("00dc", ""), "both", ""}}) {
    const std::string source = folder_.Put("in.avi", avi_maker::Film(content, avi_maker::Headers(), ""));
    const auto report = TryMux(source, streams == "both" ? std::vector{Kept(0), Kept(1)} : std::vector{Kept(1)}, out);
    EXPECT_EQ(report.has_value(), message.empty()) << name;
    EXPECT_EQ(FileExists(out), message.empty()) << name;
    if (!report) {
      EXPECT_EQ(report.error().kind, ErrorKind::Damaged) << name;
      EXPECT_THAT(report.error().message, HasSubstr("in.avi: " + message)) << name;
    }
    std::filesystem::remove(out);
  }
}

// Writes five gigabytes, so it runs only when asked for.
TEST_F(DivxMux, FilmsBeyondFourGigabytesStayWhole) {
  if (std::getenv("CAPTORIA_LARGE_TESTS") == nullptr) GTEST_SKIP() << "CAPTORIA_LARGE_TESTS is not set";
  constexpr std::uint32_t kFrame = 50'000'000;
  // Frames of holes: only their headers take room on the disk.
  const std::string head = Riff(Headers() + List("movi", "", 0), "AVI ", 0);
  const std::string source = folder_.Put("large.avi", head);
  std::uint64_t at = head.size();
  for (int frame = 0; frame < 100; ++frame, at += 8 + kFrame) Overwrite(source, at, "00dc" + Number(kFrame));
  std::filesystem::resize_file(source, at);

  const auto report = TryMux(source, {Kept(0), Subtitle({0, 3'999}, "s")}, folder_.File("out.divx"));
  ASSERT_TRUE(report) << report.error().message;
  EXPECT_GT(report->size, std::uint64_t{4} << 30);
  EXPECT_EQ(report->findings.back().kind, FindingKind::LargeFilm);
  EXPECT_EQ(OrderOf(folder_.File("out.divx")), "s" + std::string(86, 'v') + "s" + std::string(14, 'v'));
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  EXPECT_LT(usage.ru_maxrss, 48 * 1024);
}

}  // namespace
}  // namespace captoria
