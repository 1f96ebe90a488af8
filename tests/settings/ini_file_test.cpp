// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/ini_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "settings/ini_path.h"
#include "settings/ini_store.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using namespace std::string_literals;

class IniFile : public testing::Test {
 protected:
  TestFolder folder_;
  ScriptedPrompts prompts_;
  clsIniFile ini_{prompts_, folder_.Path(), " CAPTORIA "};
};

TEST_F(IniFile, StartsWithTheProgramsOwnFile) {
  EXPECT_EQ(ini_.FullPath(), folder_.File("Captoria.ini"));
  EXPECT_EQ(ini_.FilePath(), folder_.Path());
  EXPECT_EQ(ini_.FileName(), "Captoria");
  EXPECT_EQ(ini_.FileExt(), "ini");
  EXPECT_EQ(ini_.SectionName(), "General");
  EXPECT_EQ(clsIniFile(prompts_, "C:\\Tools", "my TOOL box").FullPath(), "C:\\Tools\\My Tool Box.ini");
}

TEST_F(IniFile, MissingFileGivesDefaultsAndAWriteCreatesIt) {
  EXPECT_EQ(ini_.GetString("MainX", "150"), "150");
  EXPECT_EQ(ini_.GetInt("MainX", 7), 7);
  EXPECT_TRUE(ini_.GetTF("On", true));
  EXPECT_FALSE(FileExists(ini_.FullPath()));
  EXPECT_TRUE(ini_.PutInt("MainX", -3));
  EXPECT_TRUE(ini_.PutTF("On", true));
  EXPECT_EQ(folder_.Get("Captoria.ini"), "[General]\r\nMainX=-3\r\nOn=True\r\n");

  std::filesystem::create_hard_link(ini_.FullPath(), folder_.File("same"));
  EXPECT_TRUE(ini_.PutInt("MainX", -3));
  EXPECT_EQ(std::filesystem::hard_link_count(ini_.FullPath()), 2u) << "nothing changed, so nothing is written";
}

struct Word {
  std::string_view text;
  bool on;
  int number;
};

TEST_F(IniFile, ValuesAreReadAsSwitchAndAsNumber) {
  const std::vector<Word> words{
      {"yes", true, 0},
      {"On", true, 0},
      {"t", true, 0},
      {"-1", true, -1},
      {"  1  ", true, 1},
      {"2", false, 2},
      {"", false, 0},
      {"enabled", false, 0},
      {" 40abc", false, 40},
      {"12.75", false, 12},
      {"+7", false, 7},
      {"+-7", false, 0},
      {"-99999999999", false, std::numeric_limits<int>::min()},
  };
  for (const auto& [text, on, number] : words) {
    folder_.Put("Captoria.ini", "[General]\nk=" + std::string{text} + "\n");
    EXPECT_EQ(ini_.GetTF("K", !on), on) << text;
    EXPECT_EQ(ini_.GetInt("K", 99), number) << text;
  }
}

TEST_F(IniFile, ValuesAreCutToWholeCharacters) {
  std::string accents;
  for (int i = 0; i < 300; ++i) accents += "\xC3\xA9";
  ASSERT_TRUE(ini_.PutString("utf8", accents));
  ASSERT_TRUE(ini_.PutString("bytes", std::string(300, '\xE9')));
  EXPECT_EQ(ini_.GetString("utf8"), accents.substr(0, 508));
  EXPECT_EQ(ini_.GetString("bytes").size(), 254u);
}

TEST_F(IniFile, WithoutASectionNameEveryKeyedOperationSaysSo) {
  const std::string kept = "[General]\nx=1\n";
  folder_.Put("Captoria.ini", kept);
  ini_.SetSectionName("   ");
  EXPECT_EQ(ini_.GetString("x", "d"), "");
  EXPECT_EQ(ini_.GetInt("x", 5), 0);
  EXPECT_FALSE(ini_.GetTF("x", true));
  EXPECT_FALSE(ini_.PutString("x", "2"));
  EXPECT_FALSE(ini_.PutInt("x", 2));
  EXPECT_FALSE(ini_.PutTF("x", true));
  EXPECT_FALSE(ini_.DeleteStrEntry("x"));
  EXPECT_FALSE(ini_.DeleteNumEntry("x"));
  EXPECT_FALSE(ini_.DeleteSection());
  EXPECT_EQ(ini_.GetSectEntries(), "");
  EXPECT_TRUE(ini_.GetSectEntriesEx().empty());
  EXPECT_FALSE(ini_.SectExist("General"));
  EXPECT_EQ(prompts_.TakeMessages(),
            std::vector<std::string>(12, "[Section] and FileName Not Registered in Private.Ini!"));
  EXPECT_EQ(folder_.Get("Captoria.ini"), kept);
}

TEST_F(IniFile, ADeletedSectionHasToBeNamedAgain) {
  folder_.Put("Captoria.ini", "[General]\nx=1\n[Other]\ny=2\n");
  EXPECT_TRUE(ini_.DeleteSection());
  EXPECT_EQ(folder_.Get("Captoria.ini"), "[General]\n[Other]\ny=2\n");
  EXPECT_FALSE(ini_.PutString("x", "3"));
  EXPECT_EQ(prompts_.TakeMessages().size(), 1u);
  ini_.SetSectionName("other");
  EXPECT_EQ(ini_.GetInt("Y"), 2);
}

TEST_F(IniFile, ListsAreJoinedByZeroBytes) {
  EXPECT_EQ(ini_.GetSections(), "\0\0"s);
  folder_.Put("Captoria.ini", "[General]\na = 1\n;c=2\nb=x=y\n[Other]\n");
  EXPECT_EQ(ini_.GetSections(), "General\0Other\0\0"s);
  EXPECT_EQ(ini_.GetSectEntries(), "a=1\0b=x=y\0"s);
  EXPECT_EQ(ini_.GetSectEntriesEx().at(1).value, "x=y");
  EXPECT_TRUE(ini_.SectExist("oTHER"));
  EXPECT_FALSE(ini_.SectExist("Othe"));
}

TEST_F(IniFile, ANameWithoutAPointMayHaveAnyExtension) {
  folder_.Put("film.avi", "");
  EXPECT_TRUE(clsIniFile::Exists(folder_.File("film.avi")));
  EXPECT_TRUE(clsIniFile::Exists(folder_.File("film")));
  EXPECT_FALSE(clsIniFile::Exists(folder_.File("film.srt")));
  EXPECT_FALSE(clsIniFile::Exists(folder_.File("fil")));
}

TEST_F(IniFile, PathsAreTakenApart) {
  EXPECT_EQ(ExtractName("C:\\a.b\\c.old.ini"), "c.old.ini");
  EXPECT_EQ(ExtractName("C:\\a.b\\c.old.ini", 1), "c");
  EXPECT_EQ(ExtractName("C:\\a.b\\c.old.ini", 2), "old.ini");
  EXPECT_EQ(ExtractName("C:plain", 2), "");
  EXPECT_EQ(ExtractName("C:plain"), "plain");
  EXPECT_EQ(ExtractPath("C:\\a\\b\\"), "C:\\a\\b");
  EXPECT_EQ(ExtractPath("C:\\a\\b\\\\x"), "C:\\a\\b");
  EXPECT_EQ(ExtractPath("/x.ini"), "/");
  EXPECT_EQ(ExtractPath("x.ini"), std::filesystem::current_path().string());
}

TEST_F(IniFile, AnUnusableFileIsNeverWrittenOver) {
  for (const std::string& content : {std::string(100, '\0'), std::string(kLargestIniFile + 1, ';')}) {
    folder_.Put("Captoria.ini", content);
    EXPECT_EQ(ini_.GetString("x", "default"), "default");
    EXPECT_FALSE(ini_.PutString("x", "2"));
    EXPECT_FALSE(ini_.Update([](IniDocument& document) { document.Set("General", "x", "2"); }));
    EXPECT_TRUE(folder_.Get("Captoria.ini") == content);
  }
  folder_.Put("Captoria.ini", "[General]\n");
  EXPECT_FALSE(ini_.PutString("x", std::string(kLargestIniFile, 'x'))) << "could not be read again";
  EXPECT_EQ(folder_.Get("Captoria.ini"), "[General]\n");
}

}  // namespace
}  // namespace captoria
