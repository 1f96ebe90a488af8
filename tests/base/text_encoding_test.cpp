// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/text_encoding.h"

#include <gtest/gtest.h>

#include "base/utf8.h"

namespace captoria {
namespace {

using std::string_literals::operator""s;

struct UnicodeRow {
  const char* name;
  std::string bytes;
  std::optional<std::string> encoding;
};

class UnicodeRecognition : public testing::TestWithParam<UnicodeRow> {};

TEST_P(UnicodeRecognition, TakesWhatIsBeyondDoubt) {
  EXPECT_EQ(UnicodeEncodingOf(GetParam().bytes), GetParam().encoding);
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

INSTANTIATE_TEST_SUITE_P(Files, UnicodeRecognition,
                         testing::Values(UnicodeRow{"PlainAscii", "abc", "UTF-8"}, UnicodeRow{"Empty", "", "UTF-8"},
                                         UnicodeRow{"MarkWinsOverContent", "\xFF\xFE\xE9"s, "UTF-16LE"},
                                         UnicodeRow{"ValidUtf8", "d\xC3\xA9j\xC3\xA0", "UTF-8"},
                                         UnicodeRow{"ArrowInTwoByteUnits", "1\0-\0-\0>\0"s, "UTF-16LE"},
                                         UnicodeRow{"ArrowInBigEndianUnits", "\0001\0-\0-\0>"s, "UTF-16BE"},
                                         UnicodeRow{"NulBytesAloneAreUtf8", "a\0\0b"s, "UTF-8"},
                                         UnicodeRow{"AFewBadBytesInMuchUtf8", Repeated("\xC3\xA9", 20) + "\xE9",
                                                    "UTF-8"},
                                         UnicodeRow{"OneGoodSequenceByChance", "\xE9t\xE9 \xC3\xA9", std::nullopt},
                                         UnicodeRow{"Overlong", "\xC0\xAF", std::nullopt},
                                         UnicodeRow{"Surrogate", "\xED\xA0\x80", std::nullopt},
                                         UnicodeRow{"CutOffAtTheEnd", "a\xE2\x82", std::nullopt}),
                         [](const auto& row) { return std::string{row.param.name}; });

struct DecodingRow {
  const char* name;
  std::string encoding, bytes, text;
  std::size_t undecodable;
};

class Decoding : public testing::TestWithParam<DecodingRow> {};

TEST_P(Decoding, GivesUtf8AndCountsWhatMeansNothing) {
  const auto decoded = Decode(GetParam().bytes, GetParam().encoding);
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->text, GetParam().text);
  EXPECT_EQ(decoded->undecodable, GetParam().undecodable);
}

INSTANTIATE_TEST_SUITE_P(Texts, Decoding,
                         testing::Values(DecodingRow{"MarkIsNoText", "UTF-8",
                                                     "\xEF\xBB\xBF"
                                                     "a",
                                                     "a", 0},
                                         DecodingRow{"Utf16MarkIsNoText", "UTF-16LE", "\xFF\xFE"s + "a\0"s, "a", 0},
                                         DecodingRow{"StrayByteInUtf8", "UTF-8", "a\xE9z", "a\xEF\xBF\xBDz", 1},
                                         DecodingRow{"HalfAUnitAtTheEnd", "UTF-16LE", "a\0b"s, "a\xEF\xBF\xBD", 1},
                                         DecodingRow{"UndefinedInThePage", "WINDOWS-1252", "\x81\xE9",
                                                     "\xEF\xBF\xBD\xC3\xA9", 1},
                                         DecodingRow{"NameInSmallLetters", "windows-1251", "\xEF", "\xD0\xBF", 0},
                                         DecodingRow{"WindowsQuotesInLatin1", "iso-8859-1", "\x93", "\xE2\x80\x9C", 0}),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(Decoding, LongerThanItsBufferLosesNothing) {
  const auto decoded = Decode(std::string(100'000, '\xE9'), "WINDOWS-1252");
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->text, Repeated("\xC3\xA9", 100'000));
}

TEST(Decoding, AnUnknownNameIsSaid) {
  EXPECT_EQ(Decode("a", "KLINGON").error().kind, ErrorKind::Unsupported);
  EXPECT_FALSE(IsKnownEncoding("KLINGON"));
}

}  // namespace
}  // namespace captoria
