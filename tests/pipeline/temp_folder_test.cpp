// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/temp_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>

#include "base/path_text.h"
#include "pipeline/tool_copies.h"
#include "platform/files.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TempFolder, EachConversionHasOneOfItsOwn) {
  const TestFolder program;
  const std::string data = program.File("new/data");
  {
    const auto first = TempFolder::Open(data), second = TempFolder::Open(data);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->Path(), data + "/tmp");
    EXPECT_EQ(second->Path(), data + "/tmp-2");
    EXPECT_EQ(TempFolder::Open(data)->Path(), data + "/tmp-3");
  }
  EXPECT_EQ(TempFolder::Open(data)->Path(), data + "/tmp") << "it is free again";
  const int log = open(JoinPath(data + "/tmp", TempFolder::kLogName).c_str(), O_CREAT | O_RDONLY, 0600);
  ASSERT_EQ(flock(log, LOCK_EX), 0);
  EXPECT_EQ(TempFolder::Open(data)->Path(), data + "/tmp-2") << "a script that nobody waits for is at work";
  close(log);
  program.Put("file", "");
  EXPECT_EQ(TempFolder::Open(program.File("file")).error().kind, ErrorKind::Unwritable);
}

TEST(TempFolder, TwoConversionsMakeTwoFilms) {
  const TestFolder program;
  const auto claim = [](const TempFolder& temp, const std::string& name) {
    return temp.ClaimOutput([&](const NameTaken& in_making) { return in_making(name) ? name + "_" : name; }).value();
  };
  const std::string film = program.File("films/../film.divx"), same = program.File("film.divx");
  {
    const auto first = TempFolder::Open(program.Path()), second = TempFolder::Open(program.Path());
    ASSERT_TRUE(first && second);
    EXPECT_EQ(claim(*first, film), film);
    EXPECT_EQ(claim(*second, same), same + "_") << "however the name is written";
    EXPECT_EQ(claim(*first, film), film) << "a conversion is not in its own way";
  }
  const auto third = TempFolder::Open(program.Path()), fourth = TempFolder::Open(program.Path());
  EXPECT_EQ(claim(*fourth, same), same) << "those that ended count no more";
}

// What is at "tmp" before a conversion takes a folder, and whether it takes that.
struct Found {
  const char* name;
  bool taken;
  const char* prepare;  // commands in the data folder
};

class WhatIsThere : public testing::TestWithParam<Found> {};

TEST_P(WhatIsThere, IsTakenOnlyIfItMayBeEmptied) {
  const TestFolder program;
  ASSERT_EQ(std::system(("umask 022; cd '" + program.Path() + "' && " + GetParam().prepare).c_str()), 0);
  const bool keeps = FileExists(program.File("tmp/mine.txt"));
  const std::string expected = program.File(GetParam().taken ? "tmp" : "tmp-2");
  EXPECT_EQ(TempFolder::FirstOf(program.Path()), expected);
  {
    const auto temp = TempFolder::Open(program.Path());
    ASSERT_TRUE(temp);
    EXPECT_EQ(temp->Path(), expected);
    temp->Clean({});
  }
  EXPECT_EQ(FileExists(program.File("tmp/mine.txt")), !GetParam().taken && keeps);
  program.Put(GetParam().taken ? "tmp/later.txt" : "tmp-2/later.txt", "");
  EXPECT_EQ(TempFolder::FirstOf(program.Path()), expected) << "it is marked now";
}

INSTANTIATE_TEST_SUITE_P(
    Folders, WhatIsThere,
    testing::Values(
        Found{"Nothing", true, "true"}, Found{"Empty", true, "mkdir tmp"},
        Found{"FilesOfAnOlderRelease", true,
              "mkdir tmp && cd tmp && touch bmp00001.bmp bmp712345.bmp linkerfile0.txt aXsub10.xsub divxmux.bat "
              "divxmux.log divxmux.output divxmux.progress DivXMux.exe bmptoxsub.exe"},
        Found{"OtherFilesInAMarkedOne", true, "mkdir tmp && touch tmp/.captoria-tmp && echo mine >tmp/mine.txt"},
        Found{"AnotherFile", false, "mkdir tmp && touch tmp/bmp00001.bmp && echo mine >tmp/mine.txt"},
        Found{"AnotherBitmap", false, "mkdir tmp && touch tmp/bmp1.bmp"},
        Found{"AFolderInIt", false, "mkdir -p tmp/bmp00001.bmp"}, Found{"AFile", false, "touch tmp"},
        Found{"ALinkToAMarkedOne", false,
              "mkdir mine && touch mine/.captoria-tmp && echo mine >mine/mine.txt && ln -s mine tmp"},
        Found{"ALinkAsMarker", false, "mkdir tmp && echo mine >tmp/mine.txt && ln -s mine.txt tmp/.captoria-tmp"},
        Found{"OneThatTheGroupCanWrite", false,
              "mkdir tmp && touch tmp/.captoria-tmp && chmod g+w tmp && echo mine >tmp/mine.txt"},
        Found{"OneThatAllCanWrite", false, "chmod 1777 . && mkdir -m 777 tmp && echo mine >tmp/mine.txt"},
        Found{"OneThatAllCanReplace", true, "chmod 777 . && mkdir -m 777 tmp"}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(TempFolder, CleaningRemovesLinksButNotWhatTheyLeadTo) {
  const TestFolder program;
  const std::string kept = program.Put("kept/file.bmp", "kept");
  const auto temp = TempFolder::Open(program.Path());
  ASSERT_TRUE(temp);
  std::filesystem::create_symlink(kept, temp->File("file.bmp"));
  std::filesystem::create_symlink(program.File("kept"), temp->File("folder"));
  std::filesystem::create_symlink("nowhere", temp->File("dangling"));
  temp->Clean({});
  EXPECT_EQ(program.Get("kept/file.bmp"), "kept");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(temp->Path()), {}), 1) << "the marker";
}

struct Cleaned {
  const char* name;
  CleanUp wanted;
  std::vector<std::string> left;
};

class CleaningUp : public testing::TestWithParam<Cleaned> {};

TEST_P(CleaningUp, DeletesFilesOfTheWantedKindsAndNoFolder) {
  const TestFolder program;
  const auto temp = TempFolder::Open(program.Path());
  ASSERT_TRUE(temp);
  for (const char* name : {"bmp00001.bmp", "B.BMP", "linkerfile0.txt", "a.b"}) {
    ASSERT_TRUE(WriteWholeFile(temp->File(name), "", Sync::No));
  }
  ASSERT_TRUE(CreateFolder(temp->File("folder.bmp")));
  temp->Clean(GetParam().wanted);
  EXPECT_EQ(ListFiles(temp->Path(), "?*.*"), GetParam().left);
  EXPECT_TRUE(FolderExists(temp->File("folder.bmp")));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, CleaningUp,
    testing::Values(Cleaned{"Everything", {.everything = true}, {}},
                    Cleaned{"Bitmaps", {.everything = false, .bitmaps = true}, {"a.b", "linkerfile0.txt"}},
                    Cleaned{"Others", {.everything = false, .others = true}, {"B.BMP", "bmp00001.bmp"}},
                    Cleaned{"Nothing", {.everything = false}, {"B.BMP", "a.b", "bmp00001.bmp", "linkerfile0.txt"}}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(CopyTool, TakesTheFirstThatExists) {
  const TestFolder program;
  const auto temp = TempFolder::Open(program.Path());
  ASSERT_TRUE(CreateFolder(program.File("bin")));
  const ToolPlaces places{program.File("DivXMux.exe"), program.File("bin/DivXMux.exe"), program.Put("mine", "mine")};
  const auto copied = [&] {
    EXPECT_TRUE(CopyTool(Tool::DivXMux, *temp, places));
    return program.Get("tmp/DivXMux.exe");
  };
  EXPECT_TRUE(IsAtHand(Tool::DivXMux, places, program.Path()));
  EXPECT_EQ(copied(), "mine");
  program.Put("DivXMux.exe", "first");
  program.Put("bin/DivXMux.exe", "second");
  EXPECT_EQ(copied(), "mine") << "a working copy stays";
  EXPECT_TRUE(IsAtHand(Tool::DivXMux, {}, program.Path())) << "and is enough";
  temp->Clean({});
  EXPECT_EQ(copied(), "first");
  EXPECT_FALSE(IsAtHand(Tool::BmpToXSub, {""}, program.Path()));
  EXPECT_EQ(CopyTool(Tool::BmpToXSub, *temp, {""}).error().kind, ErrorKind::NotFound);
}

}  // namespace
}  // namespace captoria
