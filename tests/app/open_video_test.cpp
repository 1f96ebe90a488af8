// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/open_video.h"

#include <algorithm>

#include "app/load_subtitle.h"
#include "base/path_text.h"
#include "tests/app/conversion_test.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Names = std::vector<std::string>;

class OpenVideoTest : public ConversionTest {
 protected:
  Names Tracks() const {
    Names names;
    for (const SubtitleTrack& track : workspace_.project.tracks.Open()) names.emplace_back(GetFileNameOnly(track.path));
    return names;
  }

  Result<void> Open(std::string path, bool ignore = false) {
    return OpenAnAviFile(workspace_, path, {.ignore_auto_srt = ignore});
  }
};

TEST_F(OpenVideoTest, LoadsTheSubtitlesOfItsNameInOrder) {
  const std::string film = PutFilm("movie.avi");
  for (const char* name : {"Movie.en.srt", "movie.srt", "movie 2.SRT", "other.srt", "amovie.srt", "movie.txt"}) {
    folder_.Put(name, kTwoCues);
  }
  folder_.Put("subs/movie.el.srt", kTwoCues);
  ASSERT_TRUE(Open(film));
  EXPECT_THAT(Tracks(), ElementsAre("movie 2.SRT", "Movie.en.srt", "movie.srt"));
  EXPECT_EQ(workspace_.project.tracks.CurrentIndex(), 2);
  EXPECT_EQ(workspace_.project.video.VideoSystem, VideoSystem::Pal);
  EXPECT_EQ(workspace_.project.video.streams.size(), 2u);

  ASSERT_TRUE(workspace_.preferences.Override("LoadSrtAutoFolder", "-1"));
  ASSERT_TRUE(workspace_.preferences.Override("LoadSrtAutoFolderText", " " + folder_.File("subs") + " "));
  ASSERT_TRUE(Open(film));
  EXPECT_THAT(Tracks(), ElementsAre("movie 2.SRT", "Movie.en.srt", "movie.srt", "movie.el.srt"));
  ASSERT_TRUE(workspace_.preferences.Override("LoadSrtAuto", "0"));
  ASSERT_TRUE(workspace_.preferences.Override("UnLoadSrt", "0"));
  ASSERT_TRUE(Open(film));
  EXPECT_EQ(Tracks().size(), 5u) << "behind those that are open";
  ASSERT_TRUE(workspace_.preferences.Override("LoadSrtAutoFolderText", folder_.File("missing")));
  ASSERT_TRUE(Open(film));
  ASSERT_TRUE(Open(film, true));
  EXPECT_EQ(Tracks().size(), 5u);
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
}

TEST_F(OpenVideoTest, EachFileIsLoadedAsManyTimesAsTheSettingsSayUpToEightTracks) {
  const std::string film = PutFilm("movie.avi");
  folder_.Put("movie.a.srt", kTwoCues);
  folder_.Put("movie.b.srt", kTwoCues);
  ASSERT_TRUE(workspace_.preferences.Override("LoadSubManyTimes", "2"));
  ASSERT_TRUE(Open(film));
  EXPECT_THAT(Tracks(), ElementsAre("movie.a.srt", "movie.a.srt", "movie.b.srt", "movie.b.srt"));
  ASSERT_TRUE(workspace_.preferences.Override("LoadSubManyTimes", "7"));
  ASSERT_TRUE(Open(film));
  EXPECT_THAT(Tracks(), ElementsAre("movie.a.srt", "movie.a.srt", "movie.a.srt", "movie.a.srt", "movie.a.srt",
                                    "movie.a.srt", "movie.a.srt", "movie.b.srt"));
}

TEST_F(OpenVideoTest, AFileThatIsNoVideoIsToldAndItsSubtitlesAreLoadedAllTheSame) {
  std::string film = folder_.Put("movie.avi", "no film");
  folder_.Put("movie.srt", kTwoCues);
  ASSERT_TRUE(Open(film));
  EXPECT_THAT(prompts_.TakeMessages(), ElementsAre(HasSubstr("Error geting info for file\r\n" + film)));
  EXPECT_THAT(workspace_.project.video.streams, IsEmpty());
  EXPECT_THAT(Tracks(), ElementsAre("movie.srt"));
  ASSERT_TRUE(Unattended([&](Workspace& alone) { return OpenAnAviFile(alone, film, {}); }));
  EXPECT_THAT(prompts_.TakeMessages(), IsEmpty());
  EXPECT_THAT(view_.warnings, ElementsAre(HasSubstr(film)));
}

TEST_F(OpenVideoTest, WithoutAPathTheUserIsAskedAndMayChangeHisMind) {
  const std::string film = PutFilm("movie.avi");
  ASSERT_TRUE(Open(film));
  prompts_.Expect("Captoria", std::optional<std::string>{});
  EXPECT_EQ(Open("").error().kind, ErrorKind::Cancelled);
  EXPECT_EQ(workspace_.project.video.AviPath, film);
  const std::string other = PutFilm("other.avi");
  prompts_.Expect("Captoria", std::optional<std::string>{other});
  ASSERT_TRUE(Open(""));
  EXPECT_EQ(workspace_.project.video.AviPath, other);
}

TEST_F(OpenVideoTest, ASubtitleFindsTheVideoOfItsName) {
  PutFilm("movie.avi");
  folder_.Put("subs/b.srt", kTwoCues);
  const std::string second = PutFilm("videos/b.avi");
  ASSERT_TRUE(workspace_.preferences.Override("LoadAviAutoFolder", "-1"));
  ASSERT_TRUE(workspace_.preferences.Override("LoadAviAutoFolderText", folder_.File("videos")));
  ASSERT_TRUE(LoadFileToList(workspace_, folder_.Put("other.srt", kTwoCues), {}));
  EXPECT_EQ(workspace_.project.video.AviPath, "");
  ASSERT_TRUE(LoadFileToList(workspace_, folder_.File("subs/b.srt"), {}));
  EXPECT_EQ(workspace_.project.video.AviPath, second);
  ASSERT_TRUE(LoadFileToList(workspace_, folder_.Put("movie.srt", kTwoCues), {}));
  EXPECT_EQ(workspace_.project.video.AviPath, second) << "one is open";
  EXPECT_THAT(Tracks(), ElementsAre("movie.srt")) << "opening it loads no others";
}

TEST_F(OpenVideoTest, SavesTheSettingsUnlessTheRunIsNotToBeRemembered) {
  const std::string film = PutFilm("movie.avi");
  workspace_.preferences.remembers = false;
  ASSERT_TRUE(Open(film));
  EXPECT_FALSE(FileExists(folder_.File("data/Captoria.ini")));
  workspace_.preferences.remembers = true;
  ASSERT_TRUE(Open(film));
  EXPECT_TRUE(FileExists(folder_.File("data/Captoria.ini")));
}

}  // namespace
}  // namespace captoria
