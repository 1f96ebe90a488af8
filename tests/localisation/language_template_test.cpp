// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_template.h"

#include <gmock/gmock.h>

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

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
void PrintTo(const Translation& row, std::ostream* out) { *out << row.name; }

class ComparedText : public testing::TestWithParam<Translation> {};

TEST_P(ComparedText, HasTheseFaults) {
  const auto document = [](const std::string& text) {
    return *LanguageDocument::Parse(WriteLanguage(std::vector<LanguageText>{{"W_Module", "s1", text}}, "", ""));
  };
  std::vector<LanguageFault> faults;
  for (const LanguageDifference& one : CompareLanguages(document(GetParam().english), document(GetParam().other)))
    faults.push_back(one.fault);
  EXPECT_THAT(faults, ElementsAreArray(GetParam().faults));
}

using enum LanguageFault;
INSTANTIATE_TEST_SUITE_P(Language, ComparedText,
                         testing::Values(Translation{"Whole", "&Open %1 of %2 ", "%2, %1 ö&ffnen ", {}},
                                         Translation{"LostPlaceholder", "%1 of %2", "%1 von", {Placeholders}},
                                         Translation{"PlaceholderTwice", "%1 of %2", "%1 %1 %2", {Placeholders}},
                                         Translation{"APerCentSignIsNone", "100%", "100 %", {}},
                                         Translation{"LostBlankInFront", " selected", "gewählt", {Blanks}},
                                         Translation{"LostBlankBehind", "line ", "Zeile", {Blanks}},
                                         Translation{"BlanksAlone", " ", "", {Blanks}},
                                         Translation{"NoMnemonic", "&File", "Datei", {Mnemonic}},
                                         Translation{"TwoMnemonics", "&File", "&Da&tei", {Mnemonic}},
                                         Translation{"AnAmpersandToBeSeen", "&Save && exit", "&Sichern && Ende", {}},
                                         Translation{"OnlyAnAmpersandToBeSeen", "&File", "A && B", {Mnemonic}},
                                         Translation{"AtTheEndItMarksNothing", "&File", "Datei&", {Mnemonic}},
                                         Translation{"NoneInEnglishNoneAskedFor", "Sound", "Ton", {}}),
                         [](const auto& info) { return info.param.name; });

TEST(ComparedLanguages, TellWhatIsMissingAndWhatIsTooMuch) {
  const auto english = LanguageDocument::Parse("<L><Private Creator=' A'/><W a='1' b='2'/><M s1='3'/></L>");
  const auto other = LanguageDocument::Parse("<L><M x='9'/><W b='2'/><Private Creator='B'/></L>");
  std::vector<std::string> found;
  for (const LanguageDifference& one : CompareLanguages(*english, *other)) found.push_back(one.Description());
  EXPECT_THAT(found, ElementsAre("W/a: missing: 1", "M/s1: missing: 3", "M/x: not in English: 9"));
}

}  // namespace
}  // namespace captoria
