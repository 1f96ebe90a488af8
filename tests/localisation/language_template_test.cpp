// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_template.h"

#include <gmock/gmock.h>

namespace captoria {
namespace {

using testing::ElementsAre;

TEST(LanguageTemplate, HasAnItemALine) {
  const std::vector<LanguageText> texts{{"Form1_Design", "mnuFile", "&File \"<x>\""},
                                        {"Form1_Module", "s1", " a\tb\n"},
                                        {"Form1_Design", "lbl_0", "é"},
                                        {"Form1_Design", "mnuFile", "again"}};
  const std::string written = WriteLanguage(texts, "Ann", "3.5.0");
  EXPECT_EQ(written,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<Language>\n"
            "  <Private\n    Creator=\"Ann\"\n    ProgramVersion=\"3.5.0\"/>\n"
            "  <Form1_Design\n    mnuFile=\"&amp;File &quot;&lt;x&gt;&quot;\"\n    lbl_0=\"é\"/>\n"
            "  <Form1_Module\n    s1=\" a&#9;b&#10;\"/>\n"
            "</Language>\n");
  const auto read = LanguageDocument::Parse(written);
  ASSERT_TRUE(read) << read.error().message;
  EXPECT_EQ(read->Text("Form1_Module", "s1"), " a\tb\n");
}

struct Translation {
  const char* name;
  std::string english;
  std::string other;
  std::vector<LanguageFault> faults;
};

using enum LanguageFault;
const Translation kTranslations[] = {{"Whole", "&Open %1 of %2 ", "%2, %1 ö&ffnen ", {}},
                                     {"LostPlaceholder", "%1 of %2", "%1 von", {Placeholders}},
                                     {"PlaceholderTwice", "%1 of %2", "%1 %1 %2", {Placeholders}},
                                     {"APerCentSignIsNone", "100%", "100 %", {}},
                                     {"LostBlankInFront", " selected", "gewählt", {Blanks}},
                                     {"LostBlankBehind", "line ", "Zeile", {Blanks}},
                                     {"BlanksAlone", " ", "", {Blanks}},
                                     {"NoMnemonic", "&File", "Datei", {Mnemonic}},
                                     {"TwoMnemonics", "&File", "&Da&tei", {Mnemonic}},
                                     {"AnAmpersandToBeSeen", "&Save && exit", "&Sichern && Ende", {}},
                                     {"OnlyAnAmpersandToBeSeen", "&File", "A && B", {Mnemonic}},
                                     {"AtTheEndItMarksNothing", "&File", "Datei&", {Mnemonic}},
                                     {"NoneInEnglishNoneAskedFor", "Sound", "Ton", {}}};

TEST(ComparedLanguages, FaultsOfATextAreFound) {
  const auto document = [](const std::string& text) {
    return *LanguageDocument::Parse(WriteLanguage(std::vector<LanguageText>{{"W_Module", "s1", text}}, "", ""));
  };
  for (const auto& [name, english, other, faults] : kTranslations) {
    std::vector<LanguageFault> found;
    for (const LanguageDifference& one : CompareLanguages(document(english), document(other)))
      found.push_back(one.fault);
    EXPECT_EQ(found, faults) << name;
  }
}

TEST(ComparedLanguages, TellWhatIsMissingAndWhatIsTooMuch) {
  const auto english = LanguageDocument::Parse("<L><Private Creator=' A'/><W a='1' b='2'/><M s1='3'/></L>");
  const auto other = LanguageDocument::Parse("<L><M x='9'/><W b='2'/><Private Creator='B'/></L>");
  std::vector<std::string> found;
  for (const LanguageDifference& one : CompareLanguages(*english, *other)) found.push_back(one.Description());
  EXPECT_THAT(found, ElementsAre("W/a: missing: 1", "M/s1: missing: 3", "M/x: not in English: 9"));
}

}  // namespace
}  // namespace captoria
