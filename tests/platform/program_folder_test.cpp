// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/program_folder.h"

#include <gtest/gtest.h>

#include "tests/support/environment.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

// A folder that is not there cannot be written, for root either.
constexpr const char* kReadOnly = "/nonexistent/bin";

TEST(ProgramFolders, TheExecutablesFolderServesWhereItCanBeWritten) {
  const TestFolder folder;
  EXPECT_EQ(FindProgramFolders("", folder.Path(), EnvironmentOf({})).data, folder.Path());
}

TEST(ProgramFolders, AnInstalledProgramKeepsItsDataWithTheUser) {
  EXPECT_EQ(FindProgramFolders("", kReadOnly, EnvironmentOf({{"XDG_DATA_HOME", "/x"}, {"HOME", "/h"}})).data,
            "/x/captoria");
  EXPECT_EQ(FindProgramFolders("", kReadOnly, EnvironmentOf({{"HOME", "/h"}})).data, "/h/.local/share/captoria");
  EXPECT_EQ(FindProgramFolders("", kReadOnly, EnvironmentOf({{"XDG_DATA_HOME", "rel"}, {"HOME", "/h"}})).data,
            "/h/.local/share/captoria");
}

TEST(ProgramFolders, AChosenFolderWins) {
  const auto folders = FindProgramFolders("/chosen", kReadOnly, EnvironmentOf({{"XDG_DATA_HOME", "/x"}}));
  EXPECT_EQ(folders.data, "/chosen");
  EXPECT_EQ(folders.executable, kReadOnly);
}

TEST(ProgramFolders, ShippedFilesAreBesideTheProgramUnlessItIsInstalled) {
  const TestFolder folder;
  const ProgramFolders folders{.executable = folder.File("lib/captoria"), .data = "/x"};
  EXPECT_EQ(ShippedFolder(folders, "languages"), folder.File("lib/captoria/languages"));
  folder.Put("share/captoria/languages/a.xml", "");
  EXPECT_EQ(ShippedFolder(folders, "languages"), folder.File("share/captoria/languages"));
}

struct Place {
  const char* name;
  const char* shipped;  // a file near the program, which is in lib/captoria and can be written
  const char* data;
};

class DataOfAProgram : public testing::TestWithParam<Place> {};

TEST_P(DataOfAProgram, IsBesideItUnlessItIsInstalled) {
  const TestFolder folder;
  ASSERT_TRUE(CreateFolder(folder.File("lib/captoria")));
  folder.Put(GetParam().shipped, "");
  const auto folders = FindProgramFolders("", folder.File("lib/captoria"), EnvironmentOf({{"HOME", folder.Path()}}));
  EXPECT_EQ(folders.data, folder.File(GetParam().data));
}

INSTANTIATE_TEST_SUITE_P(Places, DataOfAProgram,
                         testing::Values(Place{"Installed", "share/captoria/languages/a.xml", ".local/share/captoria"},
                                         Place{"Unpacked", "lib/captoria/languages/a.xml", "lib/captoria"},
                                         Place{"UnpackedNearTheUsersData", "share/captoria/Captoria.ini",
                                               "lib/captoria"}),
                         [](const auto& row) { return std::string{row.param.name}; });

}  // namespace
}  // namespace captoria
