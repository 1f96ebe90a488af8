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

TEST(AudioLanguages, FollowTheirStreams) {
  const std::vector<Row> rows{
      {"DroppedStream", {2}, "IAS1\3\0\0\0eng\0ISFT\2\0\0\0abIAS2\2\0\0\0el"s, "ISFT\2\0\0\0abIAS1\2\0\0\0el"s},
      {"OtherOrder", {2, 1}, "IAS1\2\0\0\0enIAS2\2\0\0\0el"s, "IAS1\2\0\0\0elIAS2\2\0\0\0en"s},
      {"StreamWithoutALanguage", {1, 2}, "IAS2\2\0\0\0el"s, "IAS2\2\0\0\0el"s},
      {"ListWithoutLanguages", {}, "ISFT\3\0\0\0abc"s, "ISFT\3\0\0\0abc"s},
      {"BrokenList", {2}, "IAS1\2\0\0\0enIAS2\x60\0\0\0el"s, "IAS1\2\0\0\0enIAS2\x60\0\0\0el"s},
      {"TenthStreamHasNoPiece", {2, 3, 4, 5, 6, 7, 8, 9, 10, 1}, "IAS1\2\0\0\0enIAS2\2\0\0\0el"s, "IAS1\2\0\0\0el"s},
  };
  for (const auto& [name, former_numbers, before, after] : rows) {
    EXPECT_EQ(WithAudioLanguages(Info(before), former_numbers).data, Info(after).data) << name;
  }
}

}  // namespace
}  // namespace captoria
