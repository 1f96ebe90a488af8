// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/temp_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

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
  for (const char* name : {"bmp00001.bmp", "B.BMP", "linkerfile0.txt", ".hidden"}) {
    ASSERT_TRUE(WriteWholeFile(temp->File(name), "", Sync::No));
  }
  ASSERT_TRUE(CreateFolder(temp->File("folder.bmp")));
  temp->Clean(GetParam().wanted);
  EXPECT_EQ(ListFiles(temp->Path(), "*"), GetParam().left);
  EXPECT_TRUE(FolderExists(temp->File("folder.bmp")));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, CleaningUp,
    testing::Values(Cleaned{"Everything", {.everything = true}, {}},
                    Cleaned{"Bitmaps", {.everything = false, .bitmaps = true}, {".hidden", "linkerfile0.txt"}},
                    Cleaned{"Others", {.everything = false, .others = true}, {"B.BMP", "bmp00001.bmp"}},
                    Cleaned{"Nothing", {.everything = false}, {".hidden", "B.BMP", "bmp00001.bmp", "linkerfile0.txt"}}),
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
