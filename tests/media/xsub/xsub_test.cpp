// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Packets are read back by libavcodec: what it shows is what players show.
#include <gmock/gmock.h>

#include <random>

#include "media/xsub/subtitle_rle.h"
#include "media/xsub/xsub_file.h"
#include "media/xsub/xsub_packet.h"
#include "tests/support/seen_subtitle.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

constexpr Size kFrame{720, 576};
constexpr std::array<Color, 4> kColors{{{0, 0, 255}, {255, 250, 1}, {2, 3, 4}, {70, 0, 70}}};

// The frame with the picture on it; colours numbered.
std::vector<std::uint8_t> OnFrame(const PlacedPicture& placed, const Size& frame) {
  SubtitlePicture all(frame.width, frame.height);
  for (int y = 0; y < placed.picture.height; ++y) {
    for (int x = 0; x < placed.picture.width; ++x) {
      const auto pixel = placed.picture.Row(y)[static_cast<std::size_t>(x)];
      if (pixel != 0) all.Row(placed.top + y)[static_cast<std::size_t>(placed.left + x)] = pixel;
    }
  }
  return all.pixels;
}

// Runs of lengths on both sides of every step of the code.
SubtitlePicture RandomPicture(int width, int height, std::mt19937& random) {
  constexpr std::array<std::size_t, 14> kRuns{1, 2, 3, 4, 15, 16, 63, 64, 65, 254, 255, 256, 257, 700};
  SubtitlePicture picture(width, height);
  picture.colors = kColors;
  for (std::size_t i = 0; i < picture.pixels.size();) {
    const auto run = std::min(kRuns[random() % kRuns.size()], picture.pixels.size() - i);
    std::fill_n(picture.pixels.begin() + static_cast<std::ptrdiff_t>(i), run, static_cast<std::uint8_t>(random() % 4));
    i += run;
  }
  return picture;
}

void ExpectShown(const PlacedPicture& placed, const Size& frame, const XsubTimes& times) {
  const auto packet = EncodeXsub({times, placed}, frame);
  ASSERT_TRUE(packet) << packet.error().message;
  const auto shown = DecodeXsub(*packet);
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->times, times);
  const auto& [picture, left, top] = shown->picture;
  EXPECT_EQ(picture.colors, placed.picture.colors);
  EXPECT_THAT((std::array{left % 2, top % 2, picture.width % 2, picture.height % 2}), testing::Each(0));
  EXPECT_LE(left + picture.width, frame.width);
  EXPECT_LE(top + picture.height, frame.height);
  EXPECT_TRUE(OnFrame(shown->picture, frame) == OnFrame(placed, frame));
}

TEST(XsubPacket, AnyPictureIsShownAsItIsWhereItIsWhenItIs) {
  std::mt19937 random(1);
  for (int i = 0; i < 300; ++i) {
    const Size frame{i % 3 == 0 ? 640 : 720, i % 2 == 0 ? 480 : 576};
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const int width = 1 + below(frame.width), height = 1 + below(i % 10 == 0 ? frame.height : 90);
    const int left = below(frame.width - width + 1), top = below(frame.height - height + 1);
    const XsubTimes times{below(300'000'000), 300'000'000 + below(59'999'999)};
    SCOPED_TRACE(testing::Message() << i << ": " << width << " x " << height << " at " << left << ", " << top);
    ExpectShown({RandomPicture(width, height, random), left, top}, frame, times);
  }
}

struct Code {
  const char* name;
  std::vector<std::pair<std::size_t, std::uint8_t>> runs;
  Bytes bytes;
};

TEST(XsubPacket, RunsTakeTheShortestCodes) {
  const std::vector<Code> codes{
      {"3 then 4", {{3, 1}, {4, 2}}, {0xD1, 0x20}},
      {"15 then 16", {{15, 3}, {16, 0}}, {0x3F, 0x04, 0x00}},
      {"63 then 64", {{63, 1}, {64, 2}}, {0x0F, 0xD0, 0x10, 0x20}},
      {"255", {{255, 3}}, {0x03, 0xFF}},
      {"256 inside", {{256, 1}, {1, 2}}, {0x03, 0xFD, 0x56}},
      {"256 to the end", {{1, 2}, {256, 1}}, {0x60, 0x00, 0x10}},
  };
  for (const Code& code : codes) {
    SubtitlePicture picture(0, 1);
    for (const auto& [length, color] : code.runs) picture.pixels.insert(picture.pixels.end(), length, color);
    picture.width = static_cast<int>(picture.pixels.size());
    Bytes bytes;
    EncodeField(picture, Field::Even, bytes);
    EXPECT_EQ(bytes, code.bytes) << code.name;
  }
}

struct Fitting {
  const char* name;
  int left, top;       // of a picture of 10 x 10
  int seen_x, seen_y;  // its visible pixels, as a box
  int seen_width, seen_height;
  int x, y, width, height;  // of the result on 20 x 20
  int moved_x, moved_y;     // of the visible pixels
};

TEST(FitToFrame, OnlyWhatIsSeenOutsideMovesThePicture) {
  const std::vector<Fitting> fittings{
      {"even stays", 2, 4, 0, 0, 10, 10, 2, 4, 10, 10, 0, 0},
      {"odd grows on both sides", 3, 5, 0, 0, 10, 10, 2, 4, 12, 12, 0, 0},
      {"clear rows outside go", 0, 15, 2, 1, 3, 3, 0, 14, 10, 6, 0, 0},
      {"clear columns outside go", -3, 0, 4, 1, 3, 3, 0, 0, 8, 10, 0, 0},
      {"seen rows outside come in", 0, 15, 2, 1, 3, 7, 0, 12, 10, 8, 0, -3},
      {"seen columns outside come in", -3, 0, 1, 1, 3, 3, 0, 0, 10, 10, 2, 0},
      {"nothing seen stays something", 0, 30, 0, 0, 0, 0, 0, 18, 10, 2, 0, 0},
  };
  for (const Fitting& fitting : fittings) {
    SubtitlePicture picture(10, 10);
    for (int y = 0; y < fitting.seen_height; ++y) {
      std::fill_n(picture.Row(fitting.seen_y + y).begin() + fitting.seen_x, fitting.seen_width, std::uint8_t{1});
    }
    const auto [fitted, left, top] = FitToFrame({picture, fitting.left, fitting.top}, {20, 20});
    EXPECT_EQ((std::array{left, top, fitted.width, fitted.height}),
              (std::array{fitting.x, fitting.y, fitting.width, fitting.height}))
        << fitting.name;
    const auto first = std::ranges::find(fitted.pixels, 1) - fitted.pixels.begin();
    EXPECT_EQ(std::ranges::count(fitted.pixels, 1), fitting.seen_width * fitting.seen_height) << fitting.name;
    if (fitting.seen_width == 0) continue;
    EXPECT_EQ(left + first % fitted.width, fitting.left + fitting.seen_x + fitting.moved_x) << fitting.name;
    EXPECT_EQ(top + first / fitted.width, fitting.top + fitting.seen_y + fitting.moved_y) << fitting.name;
  }
}

TEST(FitToFrame, WhatIsLargerThanTheFrameKeepsItsBeginning) {
  SubtitlePicture picture(8, 700);
  std::ranges::fill(picture.Row(100), std::uint8_t{1});
  std::ranges::fill(picture.Row(699), std::uint8_t{2});
  const auto fitted = FitToFrame({picture, 0, 3}, {720, 480});
  EXPECT_EQ(fitted.top, 0);
  ASSERT_EQ(fitted.picture.height, 480);
  EXPECT_EQ(fitted.picture.Row(0)[0], 1) << "clear rows go first";
  EXPECT_EQ(std::ranges::count(fitted.picture.pixels, 2), 0);
}

TEST(XsubPacket, RefusesWhatNoPacketCanTell) {
  const PlacedPicture small{SubtitlePicture(2, 2), 0, 0};
  for (const XsubTimes times : {XsubTimes{-1, 5}, {5, 5}, {6, 5}, {0, kLatestXsubTime + 1}}) {
    EXPECT_FALSE(EncodeXsub({times, small}, kFrame)) << times.show << " to " << times.hide;
  }
  ExpectShown(small, kFrame, {kLatestXsubTime - 1, kLatestXsubTime});

  SubtitlePicture noise(720, 576);
  for (std::size_t i = 0; i < noise.pixels.size(); ++i) noise.pixels[i] = i % 2;
  const auto packet = EncodeXsub({{0, 1}, {noise, 0, 0}}, kFrame);
  ASSERT_FALSE(packet);
  EXPECT_EQ(packet.error().kind, ErrorKind::TooLarge);
}

TEST(XsubPacket, BeginsWithTimesOfExactlyOneForm) {
  const Bytes whole = *EncodeXsub({{1000, 2000}, {SubtitlePicture(40, 20), 0, 0}}, kFrame);
  EXPECT_EQ(ReadXsubTimes(whole), (XsubTimes{1000, 2000}));
  EXPECT_FALSE(ReadXsubTimes(ByteView{whole}.first(26)));
  for (const char* text : {"[00:00:01,000-00:00:02.000]", "(00:00:01.000-00:00:02.000]", "[00:00:61.000-00:01:02.000]",
                           "[0:00:01.0000-00:00:02.000]"}) {
    Bytes other = whole;
    std::copy_n(text, 27, other.begin());
    EXPECT_FALSE(ReadXsubTimes(other)) << text;
  }
}

class Packets final : public SubtitleSource {
 public:
  Size Frame() const override { return {640, 480}; }
  std::size_t Count() const override { return 50; }
  std::int64_t ShowTime(std::size_t index) const override { return static_cast<std::int64_t>(index) * 1000; }
  Result<Bytes> Packet(std::size_t index) const override {
    if (index == broken) return Failure(ErrorKind::NotFound, "no bitmap");
    const int side = 2 + static_cast<int>(index);
    return EncodeXsub({{ShowTime(index), ShowTime(index) + 999}, {SubtitlePicture(side, side), 0, 0}}, Frame());
  }

  std::size_t broken = 50;
};

class StopAt final : public JobProgress {
 public:
  explicit StopAt(std::size_t step) : step_(step) {}
  bool Report(std::size_t done, std::size_t) override { return done < step_; }

 private:
  std::size_t step_;
};

class XsubFile : public testing::Test {
 protected:
  // The file's bytes, in a file of their own.
  Result<std::shared_ptr<SubtitleSource>> Reopen(const std::string& bytes) {
    return OpenXsubFile(folder_.Put("b.xsub", bytes));
  }

  TestFolder folder_;
  std::string path_ = folder_.File("a.xsub");
  Packets packets_;
  NoProgress quiet_;
};

TEST_F(XsubFile, GivesBackWhatWasWritten) {
  ASSERT_TRUE(WriteXsubFile(path_, packets_, quiet_));
  const auto file = OpenXsubFile(path_);
  ASSERT_TRUE(file) << file.error().message;
  EXPECT_EQ((*file)->Frame(), packets_.Frame());
  ASSERT_EQ((*file)->Count(), packets_.Count());
  for (std::size_t i = 0; i < packets_.Count(); ++i) {
    EXPECT_EQ((*file)->ShowTime(i), packets_.ShowTime(i));
    EXPECT_EQ(*(*file)->Packet(i), *packets_.Packet(i));
  }
}

TEST_F(XsubFile, AFailureOrAStopLeavesTheOldFile) {
  folder_.Put("a.xsub", "old");
  packets_.broken = 30;
  EXPECT_EQ(WriteXsubFile(path_, packets_, quiet_).error().kind, ErrorKind::NotFound);
  StopAt stop(20), last(50);
  EXPECT_EQ(WriteXsubFile(path_, packets_, stop).error().kind, ErrorKind::Cancelled);
  packets_.broken = 50;
  EXPECT_EQ(WriteXsubFile(path_, packets_, last).error().kind, ErrorKind::Cancelled);
  EXPECT_EQ(folder_.Get("a.xsub"), "old");
  EXPECT_EQ(ListFiles(folder_.Path(), "*").size(), 1U);
}

TEST_F(XsubFile, RefusesDamagedFiles) {
  ASSERT_TRUE(WriteXsubFile(path_, packets_, quiet_));
  const std::string whole = folder_.Get("a.xsub");
  for (std::size_t size = 0; size < whole.size(); size += 1 + size / 50) EXPECT_FALSE(Reopen(whole.substr(0, size)));
  EXPECT_FALSE(Reopen(whole + "x"));
  const auto changed = [&](std::size_t at, char byte) {
    std::string bytes = whole;
    bytes[at] = byte;
    return Reopen(bytes);
  };
  EXPECT_EQ(changed(7, 2).error().kind, ErrorKind::Unsupported) << "version";
  EXPECT_FALSE(changed(15, '\x7F')) << "a count that would take gigabytes";
  EXPECT_FALSE(changed(19, 1)) << "show time after the hide time";
  EXPECT_FALSE(changed(26, 1)) << "a packet larger than any";
  const auto other_time = changed(16, 1);
  ASSERT_TRUE(other_time);
  EXPECT_FALSE((*other_time)->Packet(0)) << "the packet says another time than the file";
}

}  // namespace
}  // namespace captoria
