// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "settings/ini_store.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string kZeroed(64, '\0');

TEST(SettingsFile, AGoodOrMissingFileIsNotReported) {
  const TestFolder folder;
  const std::string path = folder.File("Captoria.ini");
  EXPECT_FALSE(OpenSettingsFile(path).report);
  folder.Put("Captoria.ini", "[General]\nx=1\n");
  const OpenedSettings opened = OpenSettingsFile(path);
  EXPECT_FALSE(opened.report);
  EXPECT_EQ(opened.document.Find("General", "x"), "1");
}

TEST(SettingsFile, ADamagedFileIsPutAsideUnderAFreeName) {
  const TestFolder folder;
  const std::string path = folder.Put("Captoria.ini", kZeroed);
  folder.Put("Captoria.ini.damaged", "older");
  const OpenedSettings opened = OpenSettingsFile(path);
  ASSERT_TRUE(opened.report);
  EXPECT_NE(opened.report->find(path + ": "), std::string::npos) << *opened.report;
  EXPECT_NE(opened.report->find(path + ".damaged-2"), std::string::npos) << *opened.report;
  EXPECT_EQ(opened.document.Text(), "");
  EXPECT_EQ(folder.Get("Captoria.ini.damaged"), "older");
  EXPECT_EQ(folder.Get("Captoria.ini.damaged-2"), kZeroed);
  EXPECT_TRUE(IniWrite("General", "x", "1", path)) << "settings can be saved again";
}

TEST(SettingsFile, ATooLargeFileIsPutAside) {
  const TestFolder folder;
  const std::string path = folder.Put("Captoria.ini", std::string(kLargestIniFile + 1, '\n'));
  EXPECT_TRUE(OpenSettingsFile(path).report);
  EXPECT_EQ(ListFiles(folder.Path(), "*"), std::vector<std::string>{"Captoria.ini.damaged"});
}

// Nothing is forbidden to root, so root becomes somebody else for a while.
class AsOrdinaryUser {
 public:
  AsOrdinaryUser() { EXPECT_TRUE(user_ != 0 || seteuid(65534) == 0); }
  ~AsOrdinaryUser() { EXPECT_EQ(seteuid(user_), 0); }

 private:
  uid_t user_ = geteuid();
};

TEST(SettingsFile, AForbiddenFileIsPutAsideWhereItsFolderAllowsIt) {
  const AsOrdinaryUser user;
  const TestFolder folder;
  const std::string path = folder.Put("Captoria.ini", "[General]\nx=1\n");
  fs::permissions(path, fs::perms::none);
  fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THAT(OpenSettingsFile(path).report.value_or(""), HasSubstr("cannot be saved"));
  EXPECT_TRUE(FileExists(path));

  fs::permissions(folder.Path(), fs::perms::owner_all);
  EXPECT_THAT(OpenSettingsFile(path).report.value_or(""), HasSubstr(path + ".damaged"));
  fs::permissions(path + ".damaged", fs::perms::owner_all);
  EXPECT_EQ(folder.Get("Captoria.ini.damaged"), "[General]\nx=1\n");
}

TEST(SettingsFile, AFolderOfThatNameIsLeftAlone) {
  const TestFolder folder;
  const std::string path = folder.File("Captoria.ini");
  ASSERT_TRUE(CreateFolder(path));
  EXPECT_THAT(OpenSettingsFile(path).report.value_or(""), HasSubstr("cannot be saved"));
  EXPECT_TRUE(FolderExists(path));
}

}  // namespace
}  // namespace captoria
