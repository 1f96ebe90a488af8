// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/safe_area_commands.h"

#include <gmock/gmock.h>

#include "app/load_subtitle.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string FileOf(const std::vector<std::string>& texts) {
  std::string file;
  for (const std::string& text : texts) file += "1\n00:00:01,000 --> 00:00:02,000\n" + text + "\n\n";
  return file;
}

class SafeAreaCommands : public testing::Test {
 protected:
  SafeAreaCommands() { session_.tracks.Current().style.ShadowBevel = 2; }

  std::vector<std::string> MessagesOfLoading(const std::vector<std::string>& texts, bool is_batch = false) {
    const std::string file = folder_.Put("a.srt", FileOf(texts));
    EXPECT_TRUE(LoadFileToList(session_, file, {.is_batch = is_batch, .encoding{}}));
    return prompts_.TakeMessages();
  }

  const std::string wide_ = std::string(60, 'W');
  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
  Session session_{{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_};
};

TEST_F(SafeAreaCommands, ALoadTellsHowManyCuesAreOutsideAndWhetherTheyWillBeFitted) {
  EXPECT_THAT(MessagesOfLoading({wide_, "short", wide_}),
              ElementsAre("2 subtitle(s) are outside safe viewing area, but program will fit these subtitles by "
                          "decreasing font size."));
  ToggleFitFont(session_);
  EXPECT_THAT(MessagesOfLoading({wide_}),
              ElementsAre("1 subtitle(s) are outside safe viewing area and program will NOT fit these subtitles by "
                          "decreasing font size."));
  EXPECT_THAT(MessagesOfLoading({wide_}, true), IsEmpty());
  EXPECT_THAT(MessagesOfLoading({"short"}), IsEmpty());
}

TEST_F(SafeAreaCommands, AFontColourIsToldAndTakesTheShadow) {
  EXPECT_THAT(MessagesOfLoading({"<font color=#112233>a</font>"}),
              ElementsAre("This subtitle has a '<font color=...>' tag. Outline will be 0"));
  EXPECT_EQ(session_.tracks.Current().style.ShadowBevel, 0);
}

TEST_F(SafeAreaCommands, TheViewOfCuesOutsideEndsWhenNoneIsLeft) {
  MessagesOfLoading({"short", wide_}, true);
  EXPECT_EQ(ShownCount(session_), 2u);
  ShownSelected(session_, 0) = true;
  ShowEditOnly(session_, true);
  EXPECT_EQ(ShownCount(session_), 1u);
  EXPECT_EQ(ShownCue(session_, 0).Text, wide_);
  EXPECT_FALSE(ShownSelected(session_, 0)) << "each list has a selection of its own";
  MessagesOfLoading({wide_, wide_, "short"}, true);
  EXPECT_EQ(ShownCount(session_), 2u) << "still those outside alone";
  MessagesOfLoading({"short"}, true);
  EXPECT_FALSE(session_.only_outside);
}

}  // namespace
}  // namespace captoria
