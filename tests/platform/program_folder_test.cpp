// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/program_folder.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

Environment Of(std::map<std::string, std::string> variables) {
  return [variables = std::move(variables)](const std::string& name) -> std::optional<std::string> {
    const auto found = variables.find(name);
    if (found == variables.end()) return std::nullopt;
    return found->second;
  };
}

// A folder that is not there cannot be written, for root either.
constexpr const char* kReadOnly = "/nonexistent/bin";

TEST(ProgramFolders, TheExecutablesFolderServesWhereItCanBeWritten) {
  const TestFolder folder;
  EXPECT_EQ(FindProgramFolders("", folder.Path(), Of({})).data, folder.Path());
}

TEST(ProgramFolders, AnInstalledProgramKeepsItsDataWithTheUser) {
  EXPECT_EQ(FindProgramFolders("", kReadOnly, Of({{"XDG_DATA_HOME", "/x"}, {"HOME", "/h"}})).data, "/x/captoria");
  EXPECT_EQ(FindProgramFolders("", kReadOnly, Of({{"HOME", "/h"}})).data, "/h/.local/share/captoria");
  EXPECT_EQ(FindProgramFolders("", kReadOnly, Of({{"XDG_DATA_HOME", "rel"}, {"HOME", "/h"}})).data,
            "/h/.local/share/captoria");
}

TEST(ProgramFolders, AChosenFolderWins) {
  const auto folders = FindProgramFolders("/chosen", kReadOnly, Of({{"XDG_DATA_HOME", "/x"}}));
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
