// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_info.h"

#include <gtest/gtest.h>

#include "tests/support/avi_maker.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

namespace make = avi_maker;

AviFile Open(const TestFolder& folder, const std::string& headers) {
  auto file = AviFile::Open(folder.Put("film.avi", make::Film(make::Content(), headers, "")));
  EXPECT_TRUE(file) << file.error().message;
  return *std::move(file);
}

std::string Video(std::uint32_t scale, std::uint32_t rate, std::string_view compression = "XVID") {
  return make::List("strl", make::Piece("strh", make::StreamHeader("vids", scale, rate, 9)) +
                                make::Piece("strf", make::VideoFormat(compression, 720, 0xFFFFFFFF - 575)));
}

TEST(AviInfo, FrameRateIsThePeriodsMadeExactByTheFirstPictures) {
  struct Row {
    const char* name;
    std::uint32_t period;
    std::string streams;
    std::uint32_t rate, scale;
  };
  const Row rows[] = {
      {"period cut off", 33366, Video(1001, 30000), 30000, 1001},
      {"period rounded", 41708, Video(1001, 24000), 24000, 1001},
      {"period of its own", 40000, Video(1, 30), 1'000'000, 40000},
      {"no period", 0, Video(1, 25), 25, 1},
      {"subtitles have no say", 0, Video(1, 1'000'000, "DXSB") + Video(1, 25), 25, 1},
      {"stream without a time base", 40000, Video(0, 0), 1'000'000, 40000},
      {"nothing", 0, make::AudioStream(), 0, 1},
  };
  const TestFolder folder;
  for (const Row& row : rows) {
    const AviFileInfo info = InfoOf(Open(folder, make::List("hdrl", make::MainHeader(row.period) + row.streams)));
    EXPECT_EQ(info.rate, row.rate) << row.name;
    EXPECT_EQ(info.scale, row.scale) << row.name;
  }
}

TEST(AviInfo, StreamIsNamedAndFramedByItsHeadersOrElseByWhatItIs) {
  const TestFolder folder;
  std::string framed = make::StreamHeader("vids", 1, 25, 812);
  framed.replace(48, 8, std::string("\0\0\0\0\xD0\x02\x40\x02", 8));
  const AviFile file = Open(
      folder,
      make::Headers(Video(1, 25) + make::AudioStream() + make::AudioStream(make::Piece("strn", "Deutsch")) +
                    make::List("strl", make::Piece("strh", framed) + make::Piece("strf", make::VideoFormat("DXSB")) +
                                           make::Piece("strn", std::string(200, 'n')))));
  const AviStreamInfo video = StreamInfoOf(file, 0);
  EXPECT_EQ(video.frame.right, 720);
  EXPECT_EQ(video.frame.bottom, 576) << "the height of a picture that begins at the top";
  EXPECT_EQ(video.name, "film.avi Video #1");

  const AviStreamInfo sound = StreamInfoOf(file, 1);
  EXPECT_EQ(sound.name, "film.avi Audio #1");
  EXPECT_EQ(sound.rate, 44100u);
  EXPECT_EQ(sound.frame.right, 0);
  EXPECT_EQ(StreamInfoOf(file, 2).name, "Deutsch");

  const AviStreamInfo subtitle = StreamInfoOf(file, 3);
  EXPECT_TRUE(file.Streams()[3].IsXsub());
  EXPECT_EQ(subtitle.frame.right, 720);
  EXPECT_EQ(subtitle.frame.bottom, 576);
  EXPECT_EQ(subtitle.length, 812u);
  EXPECT_EQ(subtitle.name, std::string(63, 'n'));
}

}  // namespace
}  // namespace captoria
