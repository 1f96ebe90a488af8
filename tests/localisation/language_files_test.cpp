// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_files.h"

#include <gmock/gmock.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LanguageFiles : public testing::Test {
 protected:
  std::vector<std::string> Menu() const {
    std::vector<std::string> names;
    for (const LanguageFile& file : ListLanguages(folders_)) names.push_back(file.name);
    return names;
  }

  std::string Found(const std::string& base) const {
    const auto path = FindLanguageFile(folders_, base);
    return path ? path->substr(folder_.Path().size() + 1) : "none";
  }

  NewLanguageRefusal Refusal(const std::string& answer) const {
    return NameNewLanguage(folders_, answer, "original.xml").error();
  }

  const TestFolder folder_;
  const ProgramFolders folders_{.executable = folder_.File("lib/captoria"), .data = folder_.File("data")};
};

TEST_F(LanguageFiles, TheMenuIsSortedAndTheUsersFileHidesTheShippedOne) {
  EXPECT_THAT(Menu(), IsEmpty());
  folder_.Put("share/captoria/languages/English.Captoria.exe.xml", "");
  folder_.Put("share/captoria/languages/German.Captoria.exe.xml", "");
  folder_.Put("lib/captoria/Zulu.Captoria.exe.xml", "");
  const std::string own = folder_.Put("data/German.Captoria.exe.xml", "");
  EXPECT_THAT(Menu(), ElementsAre("English", "German", "Zulu"));
  EXPECT_EQ(ListLanguages(folders_)[1].path, own);
  EXPECT_EQ(ListLanguages(folders_)[1].base, "German.Captoria.exe");
}

TEST_F(LanguageFiles, ANameIsCutBeforeTheCharacterInFrontOfTheExecutable) {
  folder_.Put("data/Captoria.exe.xml", "");
  folder_.Put("data/DeutschCaptoria.exe.xml", "");
  folder_.Put("data/Nederlands.Captoria.exe.xml", "");
  folder_.Put("data/No\nname.Captoria.exe.xml", "");
  folder_.Put("data/Other.Program.exe.xml", "");
  folder_.Put("data/Replacement.Captoria.exe.xml.New", "");
  EXPECT_THAT(Menu(), ElementsAre("", "Deutsc", "Nederlands"));
  const auto editable = ListEditableLanguages(folders_);
  ASSERT_EQ(editable.size(), 1U);
  EXPECT_EQ(editable[0].name, "Nederlands");
}

TEST_F(LanguageFiles, AReplacementIsFoundFirstAndAlsoAlone) {
  folder_.Put("lib/captoria/languages/English.Captoria.exe.xml", "");
  EXPECT_EQ(Found("English.Captoria.exe"), "lib/captoria/languages/English.Captoria.exe.xml");
  folder_.Put("lib/captoria/languages/English.Captoria.exe.xml.New", "");
  EXPECT_EQ(Found("English.Captoria.exe"), "lib/captoria/languages/English.Captoria.exe.xml.New");
  folder_.Put("data/English.Captoria.exe.xml", "");
  EXPECT_EQ(Found("English.Captoria.exe"), "data/English.Captoria.exe.xml") << "the user's, whatever is shipped";
  folder_.Put("data/German.Captoria.exe.xml.New", "");
  EXPECT_EQ(Found("German.Captoria.exe"), "data/German.Captoria.exe.xml.New");
}

TEST_F(LanguageFiles, CaseCountsOnlyWhereTheExactNameIsThere) {
  folder_.Put("data/german.captoria.EXE.xml", "");
  EXPECT_EQ(Found("German.Captoria.exe"), "data/german.captoria.EXE.xml");
  folder_.Put("data/German.Captoria.exe.xml", "");
  EXPECT_EQ(Found("German.Captoria.exe"), "data/German.Captoria.exe.xml");
}

TEST_F(LanguageFiles, ABaseNameLeavesNoFolder) {
  folder_.Put("data/x.Captoria.exe.xml", "");
  EXPECT_EQ(Found("../data/x.Captoria.exe"), "none");
  EXPECT_EQ(Found("*.Captoria.exe"), "none");
}

TEST_F(LanguageFiles, ANewLanguageIsACopyInTheUsersFolder) {
  const std::string original = folder_.Put("lib/captoria/languages/English.Captoria.exe.xml", "<a>\xC1</a>\r\n");
  const auto created = NameNewLanguage(folders_, "  Deutsch ", original);
  ASSERT_TRUE(created);
  EXPECT_EQ(created->path, folder_.File("data/Deutsch.Captoria.exe.xml"));
  ASSERT_TRUE(CreateLanguage(*created, original));
  EXPECT_EQ(folder_.Get("data/Deutsch.Captoria.exe.xml"), "<a>\xC1</a>\r\n");
  EXPECT_THAT(Menu(), ElementsAre("Deutsch", "English"));

  EXPECT_EQ(Refusal("Deutsch"), NewLanguageRefusal::Exists);
  EXPECT_EQ(Refusal("english"), NewLanguageRefusal::Exists) << "shipped, and another case is no other language";
  EXPECT_EQ(Refusal("   "), NewLanguageRefusal::Blank);
  for (const char* name : {"../x", "a\nb", "a\x7F", "Deutsch.AT"})
    EXPECT_EQ(Refusal(name), NewLanguageRefusal::BadName) << name;
  EXPECT_EQ(NameNewLanguage(folders_, "x", "").error(), NewLanguageRefusal::NoOriginal);
}

}  // namespace
}  // namespace captoria
