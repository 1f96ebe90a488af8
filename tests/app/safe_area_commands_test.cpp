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
  SafeAreaCommands() { workspace_.project.tracks.Current().style.ShadowBevel = 2; }

  std::vector<std::string> MessagesOfLoading(const std::vector<std::string>& texts) {
    EXPECT_TRUE(LoadFileToList(workspace_, folder_.Put("a.srt", FileOf(texts)), {}));
    return prompts_.TakeMessages();
  }

  const std::string wide_ = std::string(60, 'W');
  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
  Workspace workspace_{{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_};
};

TEST_F(SafeAreaCommands, ALoadTellsHowManyCuesAreOutsideAndWhetherTheyWillBeFitted) {
  EXPECT_THAT(MessagesOfLoading({wide_, "short", wide_}),
              ElementsAre("2 subtitle(s) are outside safe viewing area, but program will fit these subtitles by "
                          "decreasing font size."));
  ToggleFitFont(workspace_.project);
  EXPECT_THAT(MessagesOfLoading({wide_}),
              ElementsAre("1 subtitle(s) are outside safe viewing area and program will NOT fit these subtitles by "
                          "decreasing font size."));
  Workspace alone(workspace_.folders, prompts_, view_, Attendance::Nobody);
  ToggleFitFont(alone.project);
  EXPECT_TRUE(LoadFileToList(alone, folder_.File("a.srt"), {}));
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_THAT(view_.warnings, ElementsAre(testing::HasSubstr("1 cue(s) are larger than the safe viewing area")));
  EXPECT_THAT(MessagesOfLoading({"short"}), IsEmpty());
}

TEST_F(SafeAreaCommands, AFontColourIsToldAndTakesTheShadow) {
  EXPECT_THAT(MessagesOfLoading({"<font color=#112233>a</font>"}),
              ElementsAre("This subtitle has a '<font color=...>' tag. Outline will be 0"));
  EXPECT_EQ(workspace_.project.tracks.Current().style.ShadowBevel, 0);
}

TEST_F(SafeAreaCommands, TheViewOfCuesOutsideEndsWhenNoneIsLeft) {
  MessagesOfLoading({"short", wide_});
  EXPECT_EQ(workspace_.project.ShownCount(), 2u);
  workspace_.project.ShownSelected(0) = true;
  workspace_.project.only_outside = true;
  EXPECT_EQ(workspace_.project.ShownCount(), 1u);
  EXPECT_EQ(workspace_.project.ShownCue(0).Text, wide_);
  EXPECT_FALSE(workspace_.project.ShownSelected(0)) << "each list has a selection of its own";
  MessagesOfLoading({wide_, wide_, "short"});
  EXPECT_EQ(workspace_.project.ShownCount(), 2u) << "still those outside alone";
  MessagesOfLoading({"short"});
  EXPECT_FALSE(workspace_.project.only_outside);
}

}  // namespace
}  // namespace captoria
