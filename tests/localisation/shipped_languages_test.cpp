// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "localisation/language_files.h"
#include "localisation/language_template.h"
#include "platform/files.h"

namespace captoria {
namespace {

const std::string kFolder = CAPTORIA_TEST_DATA "/../../assets/languages";

TEST(ShippedLanguages, AreWholeTranslationsOfEnglish) {
  if (!FolderExists(kFolder)) GTEST_SKIP() << "no language is shipped";
  const auto english = LanguageDocument::Load(kFolder + "/" + kInitialLanguage + ".xml");
  ASSERT_TRUE(english) << english.error().message;
  for (const std::string& name : ListFiles(kFolder, "*.xml")) {
    EXPECT_TRUE(name.ends_with(".Captoria.exe.xml")) << name << " is listed in no menu";
    const auto language = LanguageDocument::Load(kFolder + "/" + name);
    ASSERT_TRUE(language) << language.error().message;
    for (const LanguageDifference& difference : CompareLanguages(*english, *language))
      ADD_FAILURE() << name << ": " << difference.Description();
  }
}

}  // namespace
}  // namespace captoria
