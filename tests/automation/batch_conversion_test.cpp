// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/batch_conversion.h"

#include <gmock/gmock.h>

#include <vector>

namespace captoria {
namespace {

using testing::ElementsAre;

// Goes by the letters of a video's name: "o" cannot be opened, "s" has no subtitles, "c" does not convert, "!" stops.
class LetterSteps final : public BatchSteps {
 public:
  void CloseAllTracks() override { calls.push_back("close"); }
  bool OpenVideo(const std::string& path) override {
    calls.push_back(path);
    video_ = path;
    return !Has('o');
  }
  bool HasSubtitles() override { return !Has('s'); }
  bool MakeDivX() override {
    calls.push_back("make");
    return !Has('c') && !Has('!');
  }
  bool Stopped() override { return Has('!'); }

  std::vector<std::string> calls;

 private:
  bool Has(char letter) const { return video_.find(letter) != video_.npos; }
  std::string video_;
};

TEST(BatchConversion, TellsEachFailureOnceAndGoesOn) {
  LetterSteps steps;
  const std::string report = ConvertList(std::vector<std::string>{"a", "o", "s", "a c", "a"}, steps);
  EXPECT_EQ(report,
            "Error opening file \"o\"\r\nCan not find any subtitles for \"s\"\r\nConvert failed with file \"a c\"\r\n");
  EXPECT_EQ(BatchResult(report), report);
  EXPECT_THAT(steps.calls, ElementsAre("close", "a", "make", "close", "o", "close", "s", "close", "a c", "make",
                                       "close", "a", "make", "close"));
  EXPECT_EQ(BatchResult(ConvertList(std::vector<std::string>{"a", "a"}, steps)), "All seems to be ok");
}

TEST(BatchConversion, AStoppedVideoIsNoFailureAndTheRestIsLeft) {
  LetterSteps steps;
  EXPECT_EQ(ConvertList(std::vector<std::string>{"s", "!", "c"}, steps), "Can not find any subtitles for \"s\"\r\n");
  EXPECT_THAT(steps.calls, ElementsAre("close", "s", "close", "!", "make", "close"));
}

}  // namespace
}  // namespace captoria
