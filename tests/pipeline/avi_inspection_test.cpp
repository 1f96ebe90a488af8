// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/avi_inspection.h"

#include <gmock/gmock.h>

#include "tests/support/avi_maker.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using namespace avi_maker;

struct Rate {
  const char* name;
  std::uint32_t rate;
  std::uint32_t scale;
  const char* system;
  int height;
};

class VideoSystems : public testing::TestWithParam<Rate> {};

TEST_P(VideoSystems, FollowTheRoundedRate) {
  const VideoSystem system = SystemOfRate(GetParam().rate, GetParam().scale);
  EXPECT_EQ(NameOf(system), GetParam().system);
  EXPECT_EQ(HeightOf(system), GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(Rates, VideoSystems,
                         testing::Values(Rate{"Film", 24000, 1001, "NTSC", 480}, Rate{"Pal", 25, 1, "PAL", 576},
                                         Rate{"RoundedDownToPal", 254, 10, "PAL", 576},
                                         Rate{"HalfToTheEvenNeighbour", 245, 10, "NTSC", 480},
                                         Rate{"Ntsc", 30000, 1001, "NTSC", 480}, Rate{"Fifty", 50, 1, "NTSC", 480},
                                         Rate{"None", 0, 0, "NTSC", 480}, Rate{"NoScale", 25, 0, "NTSC", 480}),
                         [](const auto& row) { return std::string{row.param.name}; });

AviStreamInfo Stream(const std::string& type, const std::string& name, std::uint32_t rate, std::uint32_t scale,
                     std::uint32_t length) {
  AviStreamInfo stream;
  stream.type = type;
  stream.name = name;
  stream.rate = rate;
  stream.scale = scale;
  stream.length = length;
  if (type == "vids") stream.frame = {0, 0, 720, 576};
  return stream;
}

struct Row {
  const char* name;
  AviStreamInfo stream;
  StreamType type;
  const char* text;
  const char* title;
};

class StreamRows : public testing::TestWithParam<Row> {};

TEST_P(StreamRows, TellTypeSummaryAndName) {
  AviFileInfo file;
  file.rate = 24000;
  file.scale = 1001;
  const StreamTable table = DescribeStreams(file, std::span{&GetParam().stream, 1});
  EXPECT_EQ(table.front().type, GetParam().type);
  EXPECT_EQ(table.front().text, GetParam().text);
  EXPECT_EQ(table.front().Title(), GetParam().title);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, StreamRows,
    testing::Values(Row{"Video", Stream("vids", "Video", 25, 1, 250), StreamType::Video,
                        "720 x 576 - NTSC - 23.976 fps, Length: 00:00:10.000\r\nVideo", "Video"},
                    Row{"SubtitleInAnyCase", Stream("vids", "sUBTITLE - English ", 25, 1, 812), StreamType::Subtitle,
                        "720 x 576 - Lenght: 812\r\nsUBTITLE - English ", "sUBTITLE - English"},
                    Row{"SoundByItsRateAlone", Stream("auds", "", 16000, 1, 1600000), StreamType::Audio,
                        "SamplesPerSec: 16000, Length: 00:01:40.000\r\n", ""},
                    Row{"SoundWithAScale", Stream("auds", "Audio #1", 44100, 1152, 44100), StreamType::Audio,
                        "SamplesPerSec: 38.28125, Length: 00:00:01.000\r\nAudio #1", "Audio #1"},
                    Row{"SoundWithoutRate", Stream("auds", "", 0, 0, 5), StreamType::Audio,
                        "SamplesPerSec: 0, Length: 00:00:00.000\r\n", ""},
                    Row{"Unknown", Stream("txts", "Subtitle", 1, 1, 1), StreamType::Unknown, "\r\nSubtitle",
                        "Subtitle"}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(GetAviStreamInfo, FindsTheFirstStreamOfAKind) {
  const TestFolder folder;
  const std::string film = folder.Put("film.avi", Film(Content(), Headers(AudioStream() + VideoStream())));
  const auto video = GetAviStreamInfo(film, StreamKind::Video), sound = GetAviStreamInfo(film, StreamKind::Audio);
  ASSERT_TRUE(video && *video && sound && *sound);
  EXPECT_EQ((*video)->index, 1);
  EXPECT_EQ((*video)->fps, 25.0f);
  EXPECT_EQ((*video)->width, 320);
  EXPECT_EQ((*video)->height, 240);
  EXPECT_EQ((*sound)->index, 0);
  const std::string silent = folder.Put("silent.avi", Film(Content(), Headers(VideoStream())));
  EXPECT_FALSE(*GetAviStreamInfo(silent, StreamKind::Audio));
  EXPECT_FALSE(GetAviStreamInfo(folder.Put("no.avi", "no film"), StreamKind::Video));
}

}  // namespace
}  // namespace captoria
