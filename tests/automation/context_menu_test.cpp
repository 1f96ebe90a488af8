// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/context_menu.h"

#include <gmock/gmock.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;

constexpr const char* kProgram = R"(C:\My Tools\Captoria.exe)";
constexpr const char* kVerb = R"(\Create .divx with subs)";
constexpr const char* kCommand = R"(\Create .divx with subs\command)";

struct Place {
  const char* name;
  const char* keys;
  std::string shell;  // the key below which the verb goes; empty: it has no place
};

class VerbPlace : public testing::TestWithParam<Place> {};

TEST_P(VerbPlace, IsWrittenAndTakenAwayWithoutTheShellKey) {
  const auto& [name, keys, shell] = GetParam();
  const TestFolder folder;
  FileRegistry registry(folder.Put("keys", keys));
  EXPECT_FALSE(IsAtRightClick(registry));
  PutAtRightClick(registry, kProgram, true);
  EXPECT_EQ(IsAtRightClick(registry), !shell.empty());
  if (shell.empty()) {
    EXPECT_EQ(folder.Get("keys"), keys);
    return;
  }
  EXPECT_EQ(registry.ReadValue(shell + kCommand, ""), R"("C:\My Tools\Captoria.exe" /auto %1)");
  EXPECT_EQ(registry.KeyExists(R"(.avi\shell)"), shell == R"(.avi\shell)");

  const std::string before = folder.Get("keys");
  PutAtRightClick(registry, "/moved/Captoria", true);
  EXPECT_EQ(folder.Get("keys"), before) << "the state matches already";

  PutAtRightClick(registry, kProgram, false);
  EXPECT_FALSE(registry.KeyExists(shell + kVerb));
  EXPECT_TRUE(registry.KeyExists(shell));
}

INSTANTIATE_TEST_SUITE_P(Registries, VerbPlace,
                         testing::Values(Place{"TheClass", "[.avi]\n@=\"P.avi\"\n[P.avi\\shell\\play]",
                                               R"(P.avi\shell)"},
                                         Place{"NoClassNamed", "[.avi]\n[AVIFile]", R"(.avi\shell)"},
                                         Place{"ClassNotThere", "[.avi]\n@=\"AVIFile\"", ""},
                                         Place{"NoAviAtAll", "[AVIFile]", R"(.avi\shell)"}),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(PutAtRightClick, AVerbWithoutItsCommandGoesToo) {
  const TestFolder folder;
  FileRegistry registry(folder.Put("keys", "[.avi\\shell\\Create .divx with subs]\n"));
  EXPECT_TRUE(IsAtRightClick(registry));
  PutAtRightClick(registry, kProgram, false);
  EXPECT_FALSE(IsAtRightClick(registry));
}

TEST(VerbProgram, IsNamedAsItsSystemNamesPrograms) {
  EXPECT_EQ(VerbProgram("/opt/my tools"), "/opt/my tools/Captoria");
  EXPECT_EQ(VerbProgram("C:\\My Tools"), kProgram);
}

class ContextMenuEntryTest : public testing::Test {
 protected:
  ContextMenuEntry EntryOf(const std::string& program) {
    const auto environment = [data = folder_.File("data")](const std::string& name) -> std::optional<std::string> {
      if (name == "XDG_DATA_HOME") return data;
      if (name == "PATH") return "/nonexistent";  // whoever tests keeps the settings of their desktop
      return std::nullopt;
    };
    return ContextMenuEntry(registry_, FileActions(environment), program);
  }

  TestFolder folder_;
  const std::string here_ = folder_.Put("here/Captoria", ""), there_ = folder_.Put("there/Captoria", "");
  const std::string entry_ = "data/applications/org.captoria.Captoria.Convert.desktop";
  FileRegistry registry_{folder_.File("keys")};
};

TEST_F(ContextMenuEntryTest, IsRegisteredWhereKeyAndEntryNameThisProgram) {
  ContextMenuEntry here = EntryOf(here_), there = EntryOf(there_);
  EXPECT_TRUE(here.Unregister()) << "there is nothing to remove";
  ASSERT_TRUE(here.Register());
  EXPECT_TRUE(here.IsRegistered());
  EXPECT_FALSE(there.IsRegistered());
  EXPECT_THAT(folder_.Get(entry_), HasSubstr("\nName=Create .divx with subs\n"));
  EXPECT_THAT(folder_.Get(entry_), HasSubstr("\nExec=\"" + here_ + "\" /AUTO %f\n"));

  ASSERT_TRUE(there.Register()) << "what a moved program has left is no hindrance";
  EXPECT_TRUE(there.IsRegistered());
  EXPECT_FALSE(here.IsRegistered());

  std::filesystem::remove(folder_.File(entry_));
  EXPECT_FALSE(there.IsRegistered());
  ASSERT_TRUE(there.Register());
  ASSERT_TRUE(here.Unregister());
  EXPECT_FALSE(IsAtRightClick(registry_));
  EXPECT_FALSE(FileExists(folder_.File(entry_)));
}

TEST_F(ContextMenuEntryTest, SaysWhyItFailedAndLeavesNothing) {
  ContextMenuEntry entry = EntryOf(here_);
  folder_.Put("keys", "[.avi]\n@=\"AVIFile\"\n");
  EXPECT_THAT(entry.Register().error().message, HasSubstr("AVIFile"));
  EXPECT_FALSE(FileExists(folder_.File(entry_)));

  folder_.Put("keys", "");
  std::filesystem::remove_all(folder_.File("data"));
  folder_.Put("data", "");  // where a folder has to be
  EXPECT_EQ(entry.Register().error().kind, ErrorKind::Unwritable);
  EXPECT_FALSE(IsAtRightClick(registry_));
}

}  // namespace
}  // namespace captoria
