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

const std::string kPlain = "<a><W_Module s1='x'/></a>";

struct Readable {
  const char* name;
  std::string content;
  std::string text;  // of W_Module, s1
};

const Readable kReadable[] = {
    {"GreekCodePage", Declared("windows-1253", "\xC1\xF1\xF7\xDF"), "Αρχί"},
    {"TurkishStandard", Declared("iso-8859-9", "\xFD\xFE"), "ış"},
    {"JapaneseCodePage", Declared("Shift_JIS", "\x93\xFA"), "日"},
    {"Utf8WithoutADeclaration", "<a><W_Module s1='é'/></a>", "é"},
    {"Utf8Mark", "\xEF\xBB\xBF" + kPlain, "x"},
    {"MarkBeforeAnotherName", "\xEF\xBB\xBF" + Declared("iso-8859-1", "é"), "é"},
    {"Utf16LittleEndianWithMark", "\xFF\xFE" + Wide(Declared("UTF-16", "x"), true), "x"},
    {"Utf16BigEndianWithMark", "\xFE\xFF" + Wide(kPlain, false), "x"},
    {"Utf16BigEndianWithoutMark", Wide(kPlain, false), "x"},
    {"Utf16OnlyByName", Declared("UTF-16", "é"), "é"},
    {"EntitiesOfADoctypeStayAsTheyAreWritten",
     "<!DOCTYPE a [<!ENTITY l0 'lol'><!ENTITY l1 '&l0;&l0;&l0;'><!ENTITY f SYSTEM 'file:///etc/passwd'>\n"
     "<!-- ]> --><?p ]>?>]><a><W_Module s1='&l1;&f;'/></a>",
     "&l1;&f;"},
    {"DepthIsNotCountedInCommentsAndTexts",
     "<!--" + Repeated("<a>", 99) + "--><a><![CDATA[" + Repeated("<a>", 99) + "]]><?p " + Repeated("<a>", 99) +
         "?><W_Module t='" + Repeated("<a>", 99) + "' s1='x'/></a>",
     "x"},
    {"OneTagAfterTheOtherIsNotDeep", "<a>" + Repeated("<b/><b></b>", 99) + "<W_Module s1='x'/></a>", "x"},
    {"ThirtyTwoDeep", "<a>" + Repeated("<b>", 31) + Repeated("</b>", 31) + "<W_Module s1='x'/></a>", "x"},
    {"TheFirstOfAName", "<a><W_Module s1='x' s1='y'/><W_Module s1='z'/></a>", "x"}};

TEST(LanguageDocument, IsReadInEveryEncodingAndShape) {
  const TestFolder folder;
  for (const auto& [name, content, text] : kReadable) {
    const auto language = LanguageDocument::Load(folder.Put("a.xml", content));
    ASSERT_TRUE(language) << name << ": " << language.error().message;
    EXPECT_EQ(language->Text("W_Module", "s1"), text) << name;
  }
}

struct Refused {
  const char* name;
  std::string content;
  ErrorKind kind;
  std::string message;  // a part of it, behind the path
};
const Refused kRefused[] = {
    {"OneTooDeep", "<a>\n" + Repeated("<b>", 32) + Repeated("</b>", 32) + "</a>", ErrorKind::Damaged,
     "line 2: elements are nested more than 32 deep; correct"},
    {"AMillionDeep", Repeated("<b>", 1'000'000), ErrorKind::Damaged, "line 1: elements are nested"},
    {"DepthHiddenBehindCommentedEndTags", "<a>" + Repeated("<b><!--</b>-->", 40) + Repeated("</b>", 40) + "</a>",
     ErrorKind::Damaged, "elements are nested"},
    {"FiveMegabytes", "<a>" + std::string(5 << 20, ' ') + "</a>", ErrorKind::TooLarge, ""},
    {"Truncated", "<a>\n<b s='1'/>\n<c s='2", ErrorKind::Damaged, "line 3: "},
    {"ATagThatClosesAnother", "<a>\n<b></a>", ErrorKind::Damaged, "line 2: "},
    {"Empty", "", ErrorKind::Damaged, "line 1: "},
    {"NoElement", "<!-- nothing -->", ErrorKind::Damaged, "line 1: "},
    {"ByteZero", "<a>\n<b s='\0'/></a>"s, ErrorKind::Damaged, "line 2: the file contains a NUL byte"},
    {"UnknownEncoding", Declared("klingon", "x"), ErrorKind::Unsupported,
     "line 1: unknown encoding \"klingon\"; save the file as UTF-8"},
    {"AnEncodingThatMeansMoreToTheSystem", Declared("UTF-8//IGNORE", "x"), ErrorKind::Unsupported, "//IGNORE"},
    {"NoEncoding", Declared("", "x"), ErrorKind::Unsupported, "line 1"},
    {"ACodePageThatNobodyNamed", "<a>\n<b s='\xC1'/></a>", ErrorKind::Damaged,
     "line 2: a character that is not valid in UTF-8; save"}};

TEST(LanguageDocument, IsRefusedWithFileLineAndRemedy) {
  const TestFolder folder;
  for (const auto& [name, content, kind, message] : kRefused) {
    const std::string path = folder.Put("a.xml", content);
    const auto language = LanguageDocument::Load(path);
    ASSERT_FALSE(language) << name;
    EXPECT_EQ(language.error().kind, kind) << name;
    EXPECT_THAT(language.error().message, AllOf(StartsWith(path), HasSubstr(message))) << name;
  }
  EXPECT_EQ(LanguageDocument::Load(folder.File("none.xml")).error().kind, ErrorKind::NotFound);
}

}  // namespace
}  // namespace captoria
