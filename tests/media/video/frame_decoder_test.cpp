// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/video/frame_decoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;

NoProgress nobody;

// Runs the ffmpeg program in `folder`.
void Ffmpeg(const TestFolder& folder, const std::string& arguments) {
  const std::string command = "cd '" + folder.Path() + "' && ffmpeg -v error -nostdin -y " + arguments;
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

// No two frames alike, and each one's picture depends on those before it.
constexpr const char* kMoving = "-f lavfi -i testsrc2=size=92x62:rate=25 ";

// Every frame in turn, as ffmpeg decodes the film from its beginning.
std::string AllFrames(const TestFolder& folder, const std::string& film) {
  Ffmpeg(folder, "-i " + film + " -map 0:v:0 -vsync passthrough -sws_flags bicubic -pix_fmt bgra -f rawvideo all.raw");
  return folder.Get("all.raw");
}

std::string Bytes(const VideoFrame& frame) { return {frame.pixels.begin(), frame.pixels.end()}; }

struct Film {
  const char* name;
  std::string file;
  std::string making;
  bool without_index = false;
};

class EveryFrame : public testing::TestWithParam<Film> {};

TEST_P(EveryFrame, IsTheOneOfAFilmDecodedInWhole) {
  const TestFolder folder;
  const Film& row = GetParam();
  Ffmpeg(folder, kMoving + row.making + " -frames:v 60 -threads 1 " + row.file);
  const std::string all = AllFrames(folder, row.file);
  if (row.without_index) folder.Put(row.file, folder.Get(row.file).substr(0, folder.Get(row.file).rfind("idx1")));
  auto film = FrameDecoder::Open(folder.File(row.file), nobody);
  ASSERT_TRUE(film) << film.error().message;
  EXPECT_EQ(film->Width(), 92);
  EXPECT_EQ(film->Height(), 62);
  EXPECT_NEAR(static_cast<double>(film->FrameCount()), 60, 1);
  EXPECT_NEAR(static_cast<double>(film->Duration()), 2400, 60);

  const std::size_t size = 92 * 62 * 4;
  ASSERT_EQ(all.size(), 60 * size);
  for (const std::int64_t number : {59, 0, 31, 1, 12, 13, 11, 23, 24, 25, 36, 10, 37, 47, 48, 57, 58, 2, 3}) {
    const auto frame = film->Frame(number, nobody);
    ASSERT_TRUE(frame) << number << ": " << frame.error().message;
    const bool same = Bytes(*frame) == all.substr(static_cast<std::size_t>(number) * size, size);
    std::size_t found = 0;
    while (found < 60 && all.compare(found * size, size, Bytes(*frame)) != 0) ++found;
    EXPECT_TRUE(same) << number << " gives " << found;
  }
  EXPECT_EQ(film->Frame(200, nobody).error().kind, ErrorKind::NotFound);
  EXPECT_EQ(film->Frame(-1, nobody).error().kind, ErrorKind::NotFound);
}

INSTANTIATE_TEST_SUITE_P(
    Films, EveryFrame,
    testing::Values(Film{"Mpeg4", "a.avi", "-c:v mpeg4 -g 12"},
                    Film{"Mpeg4WithBFrames", "a.avi", "-c:v mpeg4 -g 12 -bf 2"},
                    Film{"WithoutIndex", "a.avi", "-c:v mpeg4 -g 12 -bf 1", true},
                    Film{"OneKeyFrame", "a.avi", "-c:v mpeg4 -g 600 -bf 1"},
                    Film{"H264WithOneKeyFrame", "a.avi", "-c:v libx264 -g 600 -bf 3 -pix_fmt yuv420p"},
                    Film{"H264", "a.avi", "-c:v libx264 -g 12 -bf 3 -pix_fmt yuv420p"},
                    Film{"H264WithOpenGroups", "a.mkv",
                         "-c:v libx264 -g 12 -bf 3 -x264-params open-gop=1 -pix_fmt yuv420p"},
                    Film{"MotionJpeg", "a.avi", "-c:v mjpeg"}, Film{"Raw", "a.avi", "-c:v rawvideo -pix_fmt bgr24"},
                    Film{"Matroska", "a.mkv", "-c:v mpeg4 -g 12 -bf 2"}, Film{"Mp4", "a.mp4", "-c:v mpeg4 -g 12 -bf 2"},
                    Film{"BesideSound", "a.avi", "-f lavfi -i sine -c:v mpeg4 -g 12 -c:a pcm_s16le -t 2.4"}),
    [](const auto& row) { return std::string{row.param.name}; });

std::string FrameBytes(FrameDecoder& film, std::int64_t number) {
  const auto frame = film.Frame(number, nobody);
  EXPECT_TRUE(frame) << frame.error().message;
  return frame ? Bytes(*frame) : "";
}

TEST(FrameDecoder, ShowsTheFrameBeforeWhereOneWasLeftOut) {
  const TestFolder folder;
  Ffmpeg(folder, std::string{kMoving} +
                     "-vf \"select='not(between(n,7,8))*lt(n,30)'\" -vsync vfr -c:v mpeg4 -frames:v 28 a.avi");
  auto film = FrameDecoder::Open(folder.File("a.avi"), nobody);
  ASSERT_TRUE(film);
  EXPECT_EQ(film->FrameCount(), 30);
  EXPECT_EQ(FrameBytes(*film, 6), FrameBytes(*film, 8));
  EXPECT_NE(FrameBytes(*film, 8), FrameBytes(*film, 9));
  EXPECT_TRUE(film->Frame(29, nobody));
}

TEST(FrameDecoder, ReadsOnlyAsFarAsABrokenFilmGoes) {
  const TestFolder folder;
  Ffmpeg(folder, std::string{kMoving} + "-c:v mpeg4 -g 12 -frames:v 60 a.avi");
  const std::string whole = folder.Get("a.avi");
  auto film = FrameDecoder::Open(folder.Put("b.avi", whole.substr(0, whole.size() / 2)), nobody);
  ASSERT_TRUE(film) << film.error().message;
  EXPECT_TRUE(film->Frame(20, nobody));
  EXPECT_EQ(film->Frame(59, nobody).error().kind, ErrorKind::NotFound);
  EXPECT_TRUE(film->Frame(2, nobody));
}

TEST(FrameDecoder, SurvivesDamageAnywhere) {
  const TestFolder folder;
  Ffmpeg(folder, std::string{kMoving} + "-c:v mpeg4 -g 12 -bf 1 -frames:v 30 a.avi");
  const std::string whole = folder.Get("a.avi");
  std::size_t opened = 0;
  for (std::size_t seed = 0; seed < 40; ++seed) {
    std::string damaged = whole;
    for (std::size_t i = 0; i < 10; ++i) damaged[(seed * 7919 + i * 104729) % (i < 3 ? 400 : whole.size())] ^= 0x55;
    auto film = FrameDecoder::Open(folder.Put("b.avi", damaged), nobody);
    if (!film) continue;
    ++opened;
    for (const int number : {20, 0, 29}) {
      const auto frame = film->Frame(number, nobody);
      EXPECT_TRUE(!frame || frame->pixels.size() == 4u * static_cast<unsigned>(frame->width * frame->height));
    }
  }
  EXPECT_GT(opened, 0u);
}

TEST(FrameDecoder, RefusesWhatIsNoFilm) {
  const TestFolder folder;
  const auto kind_of = [&](const std::string& path) {
    const auto film = FrameDecoder::Open(path, nobody);
    return film ? std::nullopt : std::optional{film.error().kind};
  };
  EXPECT_EQ(kind_of(folder.File("none.avi")), ErrorKind::NotFound);
  EXPECT_EQ(kind_of(folder.Path()), ErrorKind::Unreadable);
  EXPECT_EQ(kind_of(folder.Put("a.avi", "")), ErrorKind::Damaged);
  EXPECT_EQ(kind_of(folder.Put("a.avi", std::string(5000, 'x'))), ErrorKind::Damaged);
  Ffmpeg(folder, "-f lavfi -i color=s=7682x4320 -frames:v 1 -c:v mjpeg large.avi");
  EXPECT_EQ(kind_of(folder.File("large.avi")), ErrorKind::TooLarge);
  Ffmpeg(folder, "-f lavfi -i sine -t 1 sound.avi");
  EXPECT_EQ(kind_of(folder.File("sound.avi")), ErrorKind::Damaged);
  // A playlist would lead to another file.
  Ffmpeg(folder, std::string{kMoving} + "-c:v mpeg4 -frames:v 5 part.ts");
  EXPECT_EQ(kind_of(folder.Put("a.avi", "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\npart.ts\n#EXT-X-ENDLIST\n")),
            ErrorKind::Damaged);
  Ffmpeg(folder, std::string{kMoving} + "-c:v mpeg4 -frames:v 5 odd.avi");
  std::string unknown = folder.Get("odd.avi");
  for (auto at = unknown.find("FMP4"); at != unknown.npos; at = unknown.find("FMP4")) unknown.replace(at, 4, "QZ9?");
  EXPECT_EQ(kind_of(folder.Put("b.avi", unknown)), ErrorKind::Unsupported);
}

// Says stop when it is asked the given time.
class StopAt final : public JobProgress {
 public:
  explicit StopAt(int time) : left_(time) {}
  bool Report(std::size_t, std::size_t) override { return --left_ > 0; }

 private:
  int left_;
};

TEST(FrameDecoder, StopsWhenTheUserSaysSoAndGoesOnLater) {
  const TestFolder folder;
  Ffmpeg(folder, std::string{kMoving} + "-c:v mpeg4 -g 600 -frames:v 300 a.avi");
  StopAt now(1);
  EXPECT_EQ(FrameDecoder::Open(folder.File("a.avi"), now).error().kind, ErrorKind::Cancelled);
  auto film = FrameDecoder::Open(folder.File("a.avi"), nobody);
  ASSERT_TRUE(film);
  const std::string frame = FrameBytes(*film, 250);
  StopAt once_more(1);
  EXPECT_EQ(film->Frame(250, once_more).error().kind, ErrorKind::Cancelled);
  EXPECT_EQ(FrameBytes(*film, 250), frame);
}

}  // namespace
}  // namespace captoria
