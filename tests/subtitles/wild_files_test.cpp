// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Subtitle files as people have them, each named by its peculiarity, against what the reading rules make of them. The
// expectations were computed by a reader of its own in another language (tests/data/make_srt.py).
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "base/path_text.h"
#include "platform/files.h"
#include "subtitles/subtitle_file.h"

namespace captoria {
namespace {

using Json = nlohmann::json;

const std::string kFolder = CAPTORIA_TEST_DATA "/srt";

Json AsJson(const std::vector<SubtitleCue>& cues) {
  Json list = Json::array();
  for (const SubtitleCue& cue : cues) {
    list.push_back({{"number", std::stoi(cue.Number)},
                    {"show", cue.Show},
                    {"hide", cue.Hide},
                    {"text", cue.Text},
                    {"tag", cue.Tag}});
  }
  return list;
}

class WildFile : public testing::TestWithParam<std::string> {};

TEST_P(WildFile, ReadsAsTheRulesSay) {
  const Json expected = Json::parse(ReadWholeFile(kFolder + "/" + GetParam() + ".json").value());
  const auto file =
      ReadSubtitleFile(kFolder + "/" + GetParam() + ".srt", {.charset = expected.value("charset", 1), .forced{}});
  ASSERT_TRUE(file) << file.error().message;
  if (!expected["encoding"].is_null()) {
    EXPECT_EQ(file->encoding, expected["encoding"]);
  }
  EXPECT_EQ(file->undecodable, expected["undecodable"]);
  EXPECT_EQ(AsJson(file->reading.cues), expected["cues"]);
  const auto& problem = file->reading.problem;
  EXPECT_EQ(problem ? Json(problem->line) : Json(),
            expected["problem"].is_null() ? Json() : expected["problem"]["line"]);
}

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const std::string& file : ListFiles(kFolder, "*.json")) names.emplace_back(RemoveExt(file));
  return names;
}

INSTANTIATE_TEST_SUITE_P(Srt, WildFile, testing::ValuesIn(Names()), [](const auto& file) {
  std::string name = file.param;
  std::ranges::replace_if(
      name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
});

TEST(DialogueSample, HasNoIndicesTimesAndTags) {
  EXPECT_EQ(DialogueSample("1\r\n00:00:01,000 --> 00:00:02,000\r\n<i>a</i> {\\an8}b<\n\n 42\n4 c"), "a b\n4 c\n");
  std::string text;
  while (text.size() < 300'000) text += "Hello\n";
  EXPECT_LE(DialogueSample(text).size(), 128u * 1024 + 6);
}

TEST(WildFile, AreAtLeastForty) { EXPECT_GE(Names().size(), 40u); }

}  // namespace
}  // namespace captoria
