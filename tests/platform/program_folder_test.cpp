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
  const ProgramFolders folders{.executable = folder.File("bin"), .data = "/x"};
  EXPECT_EQ(ShippedFolder(folders, "languages"), folder.File("bin/languages"));
  folder.Put("share/captoria/languages/a.xml", "");
  ASSERT_TRUE(CreateFolder(folder.File("bin")));
  EXPECT_TRUE(FileExists(ShippedFolder(folders, "languages") + "/a.xml"));
}

}  // namespace
}  // namespace captoria
