// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/text_case.h"

#include <gtest/gtest.h>

#include <map>

namespace captoria {
namespace {

struct LocaleRow {
  const char* name;
  std::map<std::string, std::string> environment;
  CaseRule rule;
};

TEST(LocaleCase, NamesTheRule) {
  const std::vector<LocaleRow> rows{
      {"Nothing", {}, CaseRule::Common},
      {"Turkish", {{"LANG", "tr_TR.UTF-8"}}, CaseRule::Turkish},
      {"AzeriWithoutACountry", {{"LANG", "az"}}, CaseRule::Turkish},
      {"ALanguageThatOnlyBeginsLikeIt", {{"LANG", "trv_TW"}}, CaseRule::Common},
      {"AllGoesFirst", {{"LC_ALL", "C.UTF-8"}, {"LANG", "tr_TR"}}, CaseRule::Common},
      {"CharacterTypeGoesBeforeLanguage", {{"LC_CTYPE", "tr@x"}, {"LANG", "C"}}, CaseRule::Turkish},
      {"EmptyIsUnset", {{"LC_ALL", ""}, {"LANG", "tr_TR"}}, CaseRule::Turkish},
  };
  for (const auto& [name, variables, rule] : rows) {
    const auto lookup = [&variables = variables](const std::string& variable) -> std::optional<std::string> {
      const auto found = variables.find(variable);
      return found == variables.end() ? std::nullopt : std::optional{found->second};
    };
    EXPECT_EQ(CaseRuleOf(lookup), rule) << name;
  }
}

struct LowerRow {
  const char* name;
  std::string text, common, turkish;
};

TEST(LoweredText, GoesByTheRule) {
  const std::vector<LowerRow> rows{
      {"Plain", "AbC-1z", "abc-1z", "abc-1z"},
      {"TheFourLettersI", "IiİıI", "iiiıi", "ıiiıı"},
      {"Greek", "ΌΔΟΣ", "όδοσ", "όδοσ"},
      {"German", "STRAẞE ÄÖÜ", "straße äöü", "straße äöü"},
      {"BeyondTheFirstPlane", "𐐀", "𐐨", "𐐨"},
      {"NoOtherCase", "שלום 字", "שלום 字", "שלום 字"},
      {"BytesThatAreNoText", "A\xC3\xFF\xE2\x82 B", "a\xC3\xFF\xE2\x82 b", "a\xC3\xFF\xE2\x82 b"},
  };
  for (const auto& [name, text, common, turkish] : rows) {
    EXPECT_EQ(LowerCase(text, CaseRule::Common), common) << name;
    EXPECT_EQ(LowerCase(text, CaseRule::Turkish), turkish) << name;
  }
}

struct EndsRow {
  const char* name;
  std::string text;
  std::pair<char32_t, std::size_t> first, last;  // value and length
};

TEST(TextEnds, AreWholeCharactersOrStrayBytes) {
  const std::vector<EndsRow> rows{
      {"OneToFourBytes", "é😀", {U'é', 2}, {U'😀', 4}},
      {"ACutCharacter", "\xE2\x82", {0x1100E2, 1}, {0x110082, 1}},
      {"AContinuationTooMany", "é\x82", {U'é', 2}, {0x110082, 1}},
      {"OneByte", "\x80", {0x110080, 1}, {0x110080, 1}},
  };
  const auto ends = [](const TextCharacter& character) { return std::pair(character.value, character.length); };
  for (const auto& [name, text, first, last] : rows) {
    EXPECT_EQ(ends(FirstCharacter(text)), first) << name;
    EXPECT_EQ(ends(LastCharacter(text)), last) << name;
  }
}

}  // namespace
}  // namespace captoria
