// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/settings_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/ini_store.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;

const std::string kZeroed(64, '\0');

TEST(SettingsFile, ADamagedFileIsPutAsideUnderAFreeName) {
  const TestFolder folder;
  const std::string path = folder.Put("Captoria.ini", kZeroed);
  folder.Put("Captoria.ini.damaged", "older");
  ASSERT_TRUE(CreateFolder(folder.File("Captoria.ini.damaged-2")));
  const OpenedSettings opened = OpenSettingsFile(path);
  ASSERT_TRUE(opened.report);
  EXPECT_NE(opened.report->find(path + ": "), std::string::npos) << *opened.report;
  EXPECT_NE(opened.report->find(path + ".damaged-3"), std::string::npos) << *opened.report;
  EXPECT_EQ(opened.document.Text(), "");
  EXPECT_EQ(folder.Get("Captoria.ini.damaged"), "older");
  EXPECT_EQ(folder.Get("Captoria.ini.damaged-3"), kZeroed);
  EXPECT_TRUE(IniWrite("General", "x", "1", path)) << "settings can be saved again";
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
