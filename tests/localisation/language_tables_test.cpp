// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_tables.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace captoria {
namespace {

using testing::Contains;
using testing::MatchesRegex;
using testing::SizeIs;

TEST(LanguageTables, EveryLanguageIsACodeOfItsOwnAndAName) {
  ASSERT_THAT(Languages(), SizeIs(136));
  std::set<std::string_view> codes;
  for (const std::string_view entry : Languages()) {
    EXPECT_THAT(std::string{entry}, MatchesRegex("[a-z][a-z] [A-Z].*[A-Z)]"));
    EXPECT_TRUE(codes.insert(entry.substr(0, 2)).second) << entry;
  }
  EXPECT_THAT(Languages(), Contains(kDefaultLanguage));
}

TEST(LanguageTables, ATypeBeginsWithItsPlaceInTwoDigits) {
  ASSERT_THAT(SubtitleTypes(), SizeIs(17));
  for (std::size_t i = 0; i < SubtitleTypes().size(); ++i) {
    const std::string_view entry = SubtitleTypes()[i];
    EXPECT_EQ(std::stoul(std::string{entry.substr(0, 2)}), i + 1) << entry;
    EXPECT_EQ(entry[2], ' ') << entry;
  }
}

}  // namespace
}  // namespace captoria
