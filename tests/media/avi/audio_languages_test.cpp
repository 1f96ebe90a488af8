// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/audio_languages.h"

#include <gtest/gtest.h>

namespace captoria {
namespace {

using namespace std::string_literals;

RiffPiece Info(const std::string& content) {
  const std::string data = "INFO" + content;
  return {"LIST", Bytes(data.begin(), data.end())};
}

struct Row {
  const char* name;
  std::vector<int> former_numbers;
  std::string before;
  std::string after;
};

class AudioLanguages : public testing::TestWithParam<Row> {};

TEST_P(AudioLanguages, FollowTheirStreams) {
  EXPECT_EQ(WithAudioLanguages(Info(GetParam().before), GetParam().former_numbers).data, Info(GetParam().after).data);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, AudioLanguages,
    testing::Values(
        Row{"DroppedStream", {2}, "IAS1\3\0\0\0eng\0ISFT\2\0\0\0abIAS2\2\0\0\0el"s, "ISFT\2\0\0\0abIAS1\2\0\0\0el"s},
        Row{"OtherOrder", {2, 1}, "IAS1\2\0\0\0enIAS2\2\0\0\0el"s, "IAS1\2\0\0\0elIAS2\2\0\0\0en"s},
        Row{"StreamWithoutALanguage", {1, 2}, "IAS2\2\0\0\0el"s, "IAS2\2\0\0\0el"s},
        Row{"ListWithoutLanguages", {}, "ISFT\3\0\0\0abc"s, "ISFT\3\0\0\0abc"s},
        Row{"BrokenList", {2}, "IAS1\2\0\0\0enIAS2\x60\0\0\0el"s, "IAS1\2\0\0\0enIAS2\x60\0\0\0el"s}),
    [](const auto& row) { return std::string{row.param.name}; });

}  // namespace
}  // namespace captoria
