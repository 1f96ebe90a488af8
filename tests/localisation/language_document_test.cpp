// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_document.h"

#include <gmock/gmock.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using std::string_literals::operator""s;

std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// ASCII in units of two bytes.
std::string Wide(const std::string& text, bool little_endian) {
  std::string wide;
  for (const char c : text) wide += little_endian ? std::string{c, '\0'} : std::string{'\0', c};
  return wide;
}

std::string Declared(const std::string& encoding, const std::string& text) {
  return "<?xml version='1.0' encoding='" + encoding + "'?>\n<a><W_Module s1='" + text + "'/></a>";
}

struct Readable {
  const char* name;
  std::string content;
  std::string text;  // of W_Module, s1
};
void PrintTo(const Readable& row, std::ostream* out) { *out << row.name; }

class ReadableLanguage : public testing::TestWithParam<Readable> {};

TEST_P(ReadableLanguage, GivesItsText) {
  const TestFolder folder;
  const auto language = LanguageDocument::Load(folder.Put("a.xml", GetParam().content));
  ASSERT_TRUE(language) << language.error().message;
  EXPECT_EQ(language->Text("W_Module", "s1"), GetParam().text);
}

const std::string kPlain = "<a><W_Module s1='x'/></a>";

INSTANTIATE_TEST_SUITE_P(
    Language, ReadableLanguage,
    testing::Values(
        Readable{"GreekCodePage", Declared("windows-1253", "\xC1\xF1\xF7\xDF"), "Αρχί"},
        Readable{"TurkishStandard", Declared("iso-8859-9", "\xFD\xFE"), "ış"},
        Readable{"JapaneseCodePage", Declared("Shift_JIS", "\x93\xFA"), "日"},
        Readable{"Utf8WithoutADeclaration", "<a><W_Module s1='é'/></a>", "é"},
        Readable{"Utf8Mark", "\xEF\xBB\xBF" + kPlain, "x"},
        Readable{"MarkBeforeAnotherName", "\xEF\xBB\xBF" + Declared("iso-8859-1", "é"), "é"},
        Readable{"Utf16LittleEndianWithMark", "\xFF\xFE" + Wide(Declared("UTF-16", "x"), true), "x"},
        Readable{"Utf16BigEndianWithoutMark", Wide(kPlain, false), "x"},
        Readable{"Utf16OnlyByName", Declared("UTF-16", "é"), "é"},
        Readable{"EntitiesOfADoctypeStayAsTheyAreWritten",
                 "<!DOCTYPE a [<!ENTITY l0 'lol'><!ENTITY l1 '&l0;&l0;&l0;'><!ENTITY f SYSTEM 'file:///etc/passwd'>\n"
                 "<!-- ]> --><?p ]>?>]><a><W_Module s1='&l1;&f;'/></a>",
                 "&l1;&f;"},
        Readable{"DepthIsNotCountedInCommentsAndTexts",
                 "<!--" + Repeated("<a>", 99) + "--><a><![CDATA[" + Repeated("<a>", 99) + "]]><?p " +
                     Repeated("<a>", 99) + "?><W_Module t='" + Repeated("<a>", 99) + "' s1='x'/></a>",
                 "x"},
        Readable{"OneTagAfterTheOtherIsNotDeep", "<a>" + Repeated("<b/><b></b>", 99) + "<W_Module s1='x'/></a>", "x"},
        Readable{"ThirtyTwoDeep", "<a>" + Repeated("<b>", 31) + Repeated("</b>", 31) + "<W_Module s1='x'/></a>", "x"},
        Readable{"TheFirstOfAName", "<a><W_Module s1='x' s1='y'/><W_Module s1='z'/></a>", "x"}),
    [](const auto& info) { return info.param.name; });

struct Refused {
  const char* name;
  std::string content;
  ErrorKind kind;
  std::string message;  // a part of it, behind the path
};
void PrintTo(const Refused& row, std::ostream* out) { *out << row.name; }

class RefusedLanguage : public testing::TestWithParam<Refused> {};

TEST_P(RefusedLanguage, NamesFileLineAndRemedy) {
  const TestFolder folder;
  const std::string path = folder.Put("a.xml", GetParam().content);
  const auto language = LanguageDocument::Load(path);
  ASSERT_FALSE(language);
  EXPECT_EQ(language.error().kind, GetParam().kind) << language.error().message;
  EXPECT_THAT(language.error().message, AllOf(StartsWith(path), HasSubstr(GetParam().message)));
}

INSTANTIATE_TEST_SUITE_P(
    Language, RefusedLanguage,
    testing::Values(Refused{"OneTooDeep", "<a>\n" + Repeated("<b>", 32) + Repeated("</b>", 32) + "</a>",
                            ErrorKind::Damaged, "line 2: an element inside more than 31 others; correct"},
                    Refused{"AMillionDeep", Repeated("<b>", 1'000'000), ErrorKind::Damaged,
                            "line 1: an element inside"},
                    Refused{"DepthHiddenBehindCommentedEndTags",
                            "<a>" + Repeated("<b><!--</b>-->", 40) + Repeated("</b>", 40) + "</a>", ErrorKind::Damaged,
                            "an element inside"},
                    Refused{"FiveMegabytes", "<a>" + std::string(5 << 20, ' ') + "</a>", ErrorKind::TooLarge, ""},
                    Refused{"Truncated", "<a>\n<b s='1'/>\n<c s='2", ErrorKind::Damaged, "line 3: "},
                    Refused{"ATagThatClosesAnother", "<a>\n<b></a>", ErrorKind::Damaged, "line 2: "},
                    Refused{"Empty", "", ErrorKind::Damaged, "line 1: "},
                    Refused{"NoElement", "<!-- nothing -->", ErrorKind::Damaged, "line 1: "},
                    Refused{"ByteZero", "<a>\n<b s='\0'/></a>"s, ErrorKind::Damaged, "line 2: a byte 0"},
                    Refused{"UnknownEncoding", Declared("klingon", "x"), ErrorKind::Unsupported,
                            "line 1: no encoding is named \"klingon\"; save the file as UTF-8"},
                    Refused{"AnEncodingThatMeansMoreToTheSystem", Declared("UTF-8//IGNORE", "x"),
                            ErrorKind::Unsupported, "//IGNORE"},
                    Refused{"NoEncoding", Declared("", "x"), ErrorKind::Unsupported, "line 1"},
                    Refused{"ACodePageThatNobodyNamed", "<a>\n<b s='\xC1'/></a>", ErrorKind::Damaged,
                            "line 2: a letter that is not in UTF-8; save"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace captoria
