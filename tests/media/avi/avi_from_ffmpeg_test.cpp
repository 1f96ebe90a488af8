// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Films as other software writes them, against what that software reads out of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "media/avi/avi_file.h"
#include "media/avi/avi_info.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

struct Film {
  const char* name;
  const char* codecs;
  int streams;
};

const Film kFilms[] = {
    {"Mpeg4WithMp3OfOneRate", "-map 0 -map 1 -c:v mpeg4 -bf 2 -g 9 -c:a libmp3lame -b:a 128k", 2},
    {"Mpeg4WithMp3OfManyRates", "-map 0 -map 1 -c:v mpeg4 -g 9 -c:a libmp3lame -q:a 4", 2},
    {"PackedPictures", "-map 0 -c:v mpeg4 -bf 2 -g 9 -vtag XVID", 1},
    {"Pcm", "-map 0 -map 1 -c:v mpeg4 -c:a pcm_s16le", 2},
    {"Ac3AndMp3", "-map 0 -map 1 -map 1 -c:v mpeg4 -c:a:0 ac3 -c:a:1 libmp3lame", 3},
    {"MsMpeg4", "-map 0 -c:v msmpeg4 -g 9", 1},
    {"Mjpeg", "-map 0 -map 1 -c:v mjpeg -c:a pcm_u8", 2},
    {"Uncompressed", "-map 0 -c:v rawvideo -pix_fmt bgr24", 1},
    {"H264", "-map 0 -map 1 -c:v libx264 -g 9 -c:a libmp3lame", 2},
    {"UnknownToUs", "-map 0 -c:v ffv1 -g 9", 1},
};

std::string OutputOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  std::string text;
  char buffer[4096];
  for (std::size_t got = 0; (got = fread(buffer, 1, sizeof buffer, pipe)) > 0;) text.append(buffer, got);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

// The packets of one stream, as size and "K" for a key frame. Empty chunks are none to FFmpeg.
using Packets = std::vector<std::string>;

std::vector<Packets> PacketsByFfprobe(const std::string& path, int streams) {
  std::vector<Packets> packets(static_cast<std::size_t>(streams));
  std::istringstream lines(OutputOf(
      "ffprobe -v error -fflags +noparse -show_entries packet=stream_index,size,flags -of csv=p=0 \"" + path + "\""));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string stream, size, flags;
    std::getline(fields, stream, ',');
    std::getline(fields, size, ',');
    std::getline(fields, flags, ',');
    packets.at(std::stoul(stream)).push_back(size + (flags[0] == 'K' ? "K" : ""));
  }
  return packets;
}

std::vector<Packets> PacketsByUs(const AviFile& file) {
  std::vector<Packets> packets(file.Streams().size());
  const auto walk = file.Chunks();
  for (auto chunk = walk->Next(); chunk && *chunk; chunk = walk->Next()) {
    const AviChunk& it = **chunk;
    if (it.size > 0)
      packets[static_cast<std::size_t>(it.stream)].push_back(std::to_string(it.size) + (it.key ? "K" : ""));
  }
  return packets;
}

class FilmByFfmpeg : public testing::TestWithParam<Film> {};

TEST_P(FilmByFfmpeg, HasTheSameChunksForBothWithAndWithoutItsIndex) {
  const Film& film = GetParam();
  const TestFolder folder;
  const std::string path = folder.File("film.avi");
  OutputOf(
      "ffmpeg -v error -y -f lavfi -i testsrc2=size=96x64:rate=30000/1001 -f lavfi -i sine=sample_rate=44100 "
      "-t 3 " +
      std::string(film.codecs) + " \"" + path + "\"");
  const auto file = AviFile::Open(path);
  ASSERT_TRUE(file) << file.error().message;
  const auto expected = PacketsByFfprobe(path, film.streams);
  EXPECT_EQ(PacketsByUs(*file), expected);
  EXPECT_THAT(file->Damage(), testing::IsEmpty());

  const AviFileInfo info = InfoOf(*file);
  EXPECT_EQ(info.rate, 30000u);
  EXPECT_EQ(info.scale, 1001u);

  std::string content = folder.Get("film.avi");
  content.replace(content.rfind("idx1"), 4, "JUNK");
  const auto unindexed = AviFile::Open(folder.Put("unindexed.avi", content));
  ASSERT_TRUE(unindexed);
  if (std::string(film.name) == "UnknownToUs") return;
  EXPECT_EQ(PacketsByUs(*unindexed), expected) << "without the index";
}

INSTANTIATE_TEST_SUITE_P(Made, FilmByFfmpeg, testing::ValuesIn(kFilms),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace captoria
