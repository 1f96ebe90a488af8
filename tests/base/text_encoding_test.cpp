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

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(UnicodeRecognition, TakesWhatIsBeyondDoubt) {
  const std::vector<UnicodeRow> rows{
      {"PlainAscii", "abc", "UTF-8"},
      {"Empty", "", "UTF-8"},
      {"MarkWinsOverContent", "\xFF\xFE\xE9"s, "UTF-16LE"},
      {"ValidUtf8", "d\xC3\xA9j\xC3\xA0", "UTF-8"},
      {"ArrowInTwoByteUnits", "1\0-\0-\0>\0"s, "UTF-16LE"},
      {"ArrowInBigEndianUnits", "\0001\0-\0-\0>"s, "UTF-16BE"},
      {"NulBytesAloneAreUtf8", "a\0\0b"s, "UTF-8"},
      {"AFewBadBytesInMuchUtf8", Repeated("\xC3\xA9", 20) + "\xE9", "UTF-8"},
      {"OneGoodSequenceByChance", "\xE9t\xE9 \xC3\xA9", std::nullopt},
      {"Overlong", "\xC0\xAF", std::nullopt},
      {"Surrogate", "\xED\xA0\x80", std::nullopt},
      {"CutOffAtTheEnd", "a\xE2\x82", std::nullopt},
  };
  for (const auto& [name, bytes, encoding] : rows) EXPECT_EQ(UnicodeEncodingOf(bytes), encoding) << name;
}

struct DecodingRow {
  const char* name;
  std::string encoding, bytes, text;
  std::size_t undecodable;
};

TEST(Decoding, GivesUtf8AndCountsWhatMeansNothing) {
  const std::vector<DecodingRow> rows{
      {"MarkIsNoText", "UTF-8",
       "\xEF\xBB\xBF"
       "a",
       "a", 0},
      {"Utf16MarkIsNoText", "UTF-16LE", "\xFF\xFE"s + "a\0"s, "a", 0},
      {"StrayByteInUtf8", "UTF-8", "a\xE9z", "a\xEF\xBF\xBDz", 1},
      {"HalfAUnitAtTheEnd", "UTF-16LE", "a\0b"s, "a\xEF\xBF\xBD", 1},
      {"UndefinedInThePage", "WINDOWS-1252", "\x81\xE9", "\xEF\xBF\xBD\xC3\xA9", 1},
      {"NameInSmallLetters", "windows-1251", "\xEF", "\xD0\xBF", 0},
      {"WindowsQuotesInLatin1", "iso-8859-1", "\x93", "\xE2\x80\x9C", 0},
  };
  for (const auto& [name, encoding, bytes, text, undecodable] : rows) {
    const auto decoded = Decode(bytes, encoding);
    ASSERT_TRUE(decoded) << name;
    EXPECT_EQ(decoded->text, text) << name;
    EXPECT_EQ(decoded->undecodable, undecodable) << name;
  }
}

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
