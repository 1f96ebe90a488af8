// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/program_folder.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include "tests/support/environment.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

TEST(ProgramFolders, DataIsBesideTheProgramUnlessThatIsInstalledOrCannotBeWritten) {
  // A folder that does not exist cannot be written, not even by root.
  constexpr const char* kReadOnly = "/nonexistent/bin";
  const TestFolder unpacked, installed, near_user_data;
  unpacked.Put("lib/captoria/languages/a.xml", "");
  installed.Put("share/captoria/languages/a.xml", "");
  near_user_data.Put("share/captoria/Captoria.ini", "");
  for (const TestFolder* folder : {&installed, &near_user_data})
    ASSERT_TRUE(CreateFolder(folder->File("lib/captoria")));
  struct Case {
    const char* name;
    std::string chosen, executable, xdg, data;
  };
  for (const auto& [name, chosen, executable, xdg, data] :
       {Case{"unpacked", "", unpacked.File("lib/captoria"), "/x", unpacked.File("lib/captoria")},
        Case{"installed", "", installed.File("lib/captoria"), "/x", "/x/captoria"},
        Case{"near data of the user", "", near_user_data.File("lib/captoria"), "/x",
             near_user_data.File("lib/captoria")},
        Case{"read-only", "", kReadOnly, "/x", "/x/captoria"},
        Case{"no data folder of the user", "", kReadOnly, "", "/h/.local/share/captoria"},
        Case{"a relative one", "", kReadOnly, "rel", "/h/.local/share/captoria"},
        Case{"chosen", "/chosen/", kReadOnly, "/x", "/chosen"}}) {
    const auto folders =
        FindProgramFolders(chosen, executable, EnvironmentOf({{"XDG_DATA_HOME", xdg}, {"HOME", "/h"}}));
    EXPECT_EQ(folders.data, data) << name;
    EXPECT_EQ(folders.executable, executable) << name;
  }
  const std::string home = ::getpwuid(::getuid())->pw_dir;
  EXPECT_EQ(FindProgramFolders("", kReadOnly, EnvironmentOf({})).data, home + "/.local/share/captoria");
  EXPECT_EQ(ShippedFolder({unpacked.File("lib/captoria"), "/x"}, "languages"), unpacked.File("lib/captoria/languages"));
  EXPECT_EQ(ShippedFolder({installed.File("lib/captoria"), "/x"}, "languages"),
            installed.File("share/captoria/languages"));
}

}  // namespace
}  // namespace captoria
