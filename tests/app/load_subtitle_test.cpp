// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/load_subtitle.h"

#include <gmock/gmock.h>

#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kOneCue = "1\n00:00:01,000 --> 00:00:02,000\nHello\n";
constexpr const char* kFaulty = "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n2\n00:00:03 --> 00:00:04,000\nBye\n";

class LoadSubtitle : public testing::Test {
 protected:
  Workspace Start(Attendance attendance = Attendance::Person) {
    return {{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_, attendance};
  }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
};

TEST_F(LoadSubtitle, AFileGoesIntoAsManyTracksAsTheSettingsSayAndAnIndexIntoOne) {
  const std::string srt = folder_.Put("a.srt", kOneCue);
  const std::string idx = folder_.Put("a.IDX", "");
  Workspace workspace = Start();
  workspace.preferences.settings.LoadSubManyTimes = 3;
  ASSERT_TRUE(OpenSubtitleFile(workspace, srt, {}));
  EXPECT_EQ(workspace.project.tracks.Count(), 3);
  for (const SubtitleTrack& track : workspace.project.tracks.Open()) EXPECT_EQ(track.cues.size(), 1u);

  workspace.project.SelectLastTab(workspace.preferences);
  ASSERT_TRUE(OpenSubtitleFile(workspace, idx, {}));
  EXPECT_EQ(workspace.project.tracks.Count(), 4);
  EXPECT_EQ(workspace.project.tracks.Current().cues.at(0).Hide, "idx file");
  EXPECT_EQ(workspace.project.tracks.Current().outside.size(), 1u);
}

TEST_F(LoadSubtitle, CopiesBeyondTheEighthTrackGoIntoTheLast) {
  const std::string file = folder_.Put("a.srt", kOneCue);
  Workspace workspace = Start();
  workspace.preferences.settings.LoadSubManyTimes = 20;
  ASSERT_TRUE(OpenSubtitleFile(workspace, file, {}));
  EXPECT_EQ(workspace.project.tracks.Count(), 8);
  EXPECT_EQ(workspace.project.tracks.CurrentIndex(), 7);
}

TEST_F(LoadSubtitle, AMissingFileChangesNothing) {
  Workspace workspace = Start();
  ASSERT_TRUE(LoadFileToList(workspace, folder_.Put("a.srt", kOneCue), {}));
  for (const std::string& name : {std::string{}, std::string{"  "}, folder_.File("none.srt"), folder_.Path()}) {
    EXPECT_FALSE(LoadFileToList(workspace, name, {}));
  }
  EXPECT_EQ(workspace.project.tracks.Current().cues.size(), 1u);
  EXPECT_EQ(workspace.project.current_file, folder_.File("a.srt"));
}

TEST_F(LoadSubtitle, AFaultIsToldOnceAndByNoBoxIfNobodyWatches) {
  const std::string file = folder_.Put("a.srt", kFaulty);
  Workspace workspace = Start();
  workspace.preferences.settings.LoadSubManyTimes = 3;
  ASSERT_TRUE(OpenSubtitleFile(workspace, file, {}));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("a.srt, line 6: ")));
  Workspace alone = Start(Attendance::Nobody);
  ASSERT_TRUE(LoadFileToList(alone, file, {}));
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_THAT(view_.warnings, ElementsAre(HasSubstr("a.srt, line 6: ")));
}

}  // namespace
}  // namespace captoria
