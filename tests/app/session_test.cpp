// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/session.h"

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

constexpr const char* kOneCue = "1\n00:00:01,000 --> 00:00:02,000\nHello\n";
constexpr const char* kFaulty = "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n2\n00:00:03 --> 00:00:04,000\nBye\n";

class SessionTest : public testing::Test {
 protected:
  Session Start() { return {{.executable = folder_.Path(), .data = folder_.Path()}, prompts_, view_}; }

  ScriptedPrompts prompts_;
  QuietView view_;
  TestFolder folder_;
};

// Opens `count` tracks and gives each a vertical position of its own.
void OpenTracks(Session& session, const std::string& file, int count, int first_position) {
  for (int i = 0; i < count; ++i) {
    if (i > 0) session.SelectLastTab();
    ASSERT_TRUE(LoadFileToList(session, file, {}));
    session.tracks.Current().style.VertPos = first_position + i;
  }
}

TEST_F(SessionTest, TracksThatAreNotOpenKeepTheirStylesInTheFile) {
  const std::string file = folder_.Put("a.srt", kOneCue);
  {
    Session first = Start();
    OpenTracks(first, file, 3, 50);
    first.tracks.Current().style.RightToLeft = true;
    ASSERT_TRUE(first.Save());
  }
  {
    Session second = Start();
    EXPECT_EQ(second.tracks.Current().style.VertPos, 50);
    OpenTracks(second, file, 2, 60);
    ASSERT_TRUE(second.Save());
  }
  Session third = Start();
  for (int i = 0; i < 3; ++i) {
    if (i > 0) third.SelectLastTab();
    ASSERT_TRUE(LoadFileToList(third, file, {}));
  }
  EXPECT_EQ(third.tracks.Open()[1].style.VertPos, 61);
  EXPECT_EQ(third.tracks.Open()[2].style.VertPos, 52) << "saved by the first run, not open in the second";
  EXPECT_TRUE(third.tracks.Open()[2].style.RightToLeft);
}

TEST_F(SessionTest, ADamagedSettingsFileIsSetAsideToldAndReplacedOnlyByTheNextSave) {
  const std::string zeros(500, '\0');
  folder_.Put("Captoria.ini", zeros);
  Session session = Start();
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("Captoria.ini.damaged")));
  EXPECT_EQ(folder_.Get("Captoria.ini.damaged"), zeros);
  EXPECT_EQ(session.tracks.Current().style.VertPos, 40);
  ASSERT_TRUE(session.Save());
  EXPECT_THAT(folder_.Get("Captoria.ini"), HasSubstr("VertPos0=40"));
}

TEST_F(SessionTest, AFirstSaveCreatesTheDataFolder) {
  Session session{{.executable = folder_.Path(), .data = folder_.File("new/captoria")}, prompts_, view_};
  ASSERT_TRUE(session.Save());
  EXPECT_TRUE(FileExists(folder_.File("new/captoria/Captoria.ini")));
}

TEST_F(SessionTest, AFileGoesIntoAsManyTracksAsTheSettingsSayAndAnIndexIntoOne) {
  const std::string srt = folder_.Put("a.srt", kOneCue);
  const std::string idx = folder_.Put("a.IDX", "");
  Session session = Start();
  session.settings.LoadSubManyTimes = 3;
  ASSERT_TRUE(OpenSubtitleFile(session, srt, {}));
  EXPECT_EQ(session.tracks.Count(), 3);
  for (const SubtitleTrack& track : session.tracks.Open()) EXPECT_EQ(track.cues.size(), 1u);

  session.SelectLastTab();
  ASSERT_TRUE(OpenSubtitleFile(session, idx, {}));
  EXPECT_EQ(session.tracks.Count(), 4);
  EXPECT_EQ(session.tracks.Current().cues.at(0).Hide, "idx file");
  EXPECT_EQ(session.tracks.Current().outside.size(), 1u);
}

TEST_F(SessionTest, CopiesBeyondTheEighthTrackGoIntoTheLast) {
  const std::string file = folder_.Put("a.srt", kOneCue);
  Session session = Start();
  session.settings.LoadSubManyTimes = 20;
  ASSERT_TRUE(OpenSubtitleFile(session, file, {}));
  EXPECT_EQ(session.tracks.Count(), 8);
  EXPECT_EQ(session.tracks.CurrentIndex(), 7);
}

TEST_F(SessionTest, AMissingFileChangesNothing) {
  Session session = Start();
  ASSERT_TRUE(LoadFileToList(session, folder_.Put("a.srt", kOneCue), {}));
  for (const std::string& name : {std::string{}, std::string{"  "}, folder_.File("none.srt"), folder_.Path()}) {
    EXPECT_FALSE(LoadFileToList(session, name, {}));
  }
  EXPECT_EQ(session.tracks.Current().cues.size(), 1u);
  EXPECT_EQ(session.current_file, folder_.File("a.srt"));
}

TEST_F(SessionTest, AFaultIsToldOnceAndNeverInABatch) {
  const std::string file = folder_.Put("a.srt", kFaulty);
  Session session = Start();
  session.settings.LoadSubManyTimes = 3;
  ASSERT_TRUE(OpenSubtitleFile(session, file, {}));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("a.srt: line 6: ")));
  ASSERT_TRUE(LoadFileToList(session, file, {.is_batch = true, .encoding{}}));
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
}

}  // namespace
}  // namespace captoria
