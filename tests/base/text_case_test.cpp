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

class LocaleCase : public testing::TestWithParam<LocaleRow> {};

TEST_P(LocaleCase, NamesTheRule) {
  const auto& environment = GetParam().environment;
  EXPECT_EQ(CaseRuleOf([&](const std::string& name) -> std::optional<std::string> {
              const auto found = environment.find(name);
              return found == environment.end() ? std::nullopt : std::optional{found->second};
            }),
            GetParam().rule);
}

INSTANTIATE_TEST_SUITE_P(
    Environments, LocaleCase,
    testing::Values(LocaleRow{"Nothing", {}, CaseRule::Common},
                    LocaleRow{"Turkish", {{"LANG", "tr_TR.UTF-8"}}, CaseRule::Turkish},
                    LocaleRow{"AzeriWithoutACountry", {{"LANG", "az"}}, CaseRule::Turkish},
                    LocaleRow{"ALanguageThatOnlyBeginsLikeIt", {{"LANG", "trv_TW"}}, CaseRule::Common},
                    LocaleRow{"AllGoesFirst", {{"LC_ALL", "C.UTF-8"}, {"LANG", "tr_TR"}}, CaseRule::Common},
                    LocaleRow{
                        "CharacterTypeGoesBeforeLanguage", {{"LC_CTYPE", "tr@x"}, {"LANG", "C"}}, CaseRule::Turkish},
                    LocaleRow{"EmptyIsUnset", {{"LC_ALL", ""}, {"LANG", "tr_TR"}}, CaseRule::Turkish}),
    [](const auto& row) { return std::string{row.param.name}; });

struct LowerRow {
  const char* name;
  std::string text, common, turkish;
};

class LoweredText : public testing::TestWithParam<LowerRow> {};

TEST_P(LoweredText, GoesByTheRule) {
  EXPECT_EQ(LowerCase(GetParam().text, CaseRule::Common), GetParam().common);
  EXPECT_EQ(LowerCase(GetParam().text, CaseRule::Turkish), GetParam().turkish);
}

INSTANTIATE_TEST_SUITE_P(Scripts, LoweredText,
                         testing::Values(LowerRow{"Plain", "AbC-1z", "abc-1z", "abc-1z"},
                                         LowerRow{"TheFourLettersI", "IiİıI", "iiiıi", "ıiiıı"},
                                         LowerRow{"Greek", "ΌΔΟΣ", "όδοσ", "όδοσ"},
                                         LowerRow{"German", "STRAẞE ÄÖÜ", "straße äöü", "straße äöü"},
                                         LowerRow{"BeyondTheFirstPlane", "𐐀", "𐐨", "𐐨"},
                                         LowerRow{"NoOtherCase", "שלום 字", "שלום 字", "שלום 字"},
                                         LowerRow{"BytesThatAreNoText", "A\xC3\xFF\xE2\x82 B", "a\xC3\xFF\xE2\x82 b",
                                                  "a\xC3\xFF\xE2\x82 b"}),
                         [](const auto& row) { return std::string{row.param.name}; });

struct EndsRow {
  const char* name;
  std::string text;
  char32_t first;
  std::size_t first_length;
  char32_t last;
  std::size_t last_length;
};

class TextEnds : public testing::TestWithParam<EndsRow> {};

TEST_P(TextEnds, AreWholeCharactersOrStrayBytes) {
  const auto [first, first_length] = FirstCharacter(GetParam().text);
  const auto [last, last_length] = LastCharacter(GetParam().text);
  EXPECT_EQ(first, GetParam().first);
  EXPECT_EQ(first_length, GetParam().first_length);
  EXPECT_EQ(last, GetParam().last);
  EXPECT_EQ(last_length, GetParam().last_length);
}

INSTANTIATE_TEST_SUITE_P(Texts, TextEnds,
                         testing::Values(EndsRow{"OneToFourBytes", "é😀", U'é', 2, U'😀', 4},
                                         EndsRow{"ACutCharacter", "\xE2\x82", 0x1100E2, 1, 0x110082, 1},
                                         EndsRow{"AContinuationTooMany", "é\x82", U'é', 2, 0x110082, 1},
                                         EndsRow{"OneByte", "\x80", 0x110080, 1, 0x110080, 1}),
                         [](const auto& row) { return std::string{row.param.name}; });

}  // namespace
}  // namespace captoria
