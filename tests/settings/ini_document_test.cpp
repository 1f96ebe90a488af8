// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/ini_document.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>

namespace captoria {
namespace {

IniDocument Parsed(std::string_view text) {
  auto document = IniDocument::Parse(text);
  if (!document) {
    ADD_FAILURE() << document.error().message;
    return {};
  }
  return *std::move(document);
}

struct Edit {
  const char* name;
  std::string_view before, section, key, value, after;
};

class IniSet : public testing::TestWithParam<Edit> {};

TEST_P(IniSet, ChangesOneLine) {
  const Edit& edit = GetParam();
  IniDocument document = Parsed(edit.before);
  ASSERT_TRUE(document.Set(edit.section, edit.key, edit.value));
  EXPECT_EQ(document.Text(), edit.after);
  EXPECT_EQ(document.Find(edit.section, edit.key), edit.value);
  EXPECT_EQ(Parsed(document.Text()).Find(edit.section, edit.key), edit.value) << "as it is read back";
}

INSTANTIATE_TEST_SUITE_P(
    Edits, IniSet,
    testing::Values(
        Edit{"NewTextHasDosLineEnds", "", "General", "MainX", "300", "[General]\r\nMainX=300\r\n"},
        Edit{"NewKeyGoesBehindTheOthers", "[General]\nLang=x\n", "General", "MainX", "3",
             "[General]\nLang=x\nMainX=3\n"},
        Edit{"NewKeyStaysAboveBlankLines", "[A]\nx=1\n\n \t\n[B]\nx=2\n", "A", "y", "3",
             "[A]\nx=1\ny=3\n\n \t\n[B]\nx=2\n"},
        Edit{"NewKeyInAnEmptySection", "[A]\n\n[B]\n", "A", "y", "3", "[A]\ny=3\n\n[B]\n"},
        Edit{"LastLineWithoutEndGetsOne", "[A]\nx=1", "A", "y", "2", "[A]\nx=1\ny=2\n"},
        Edit{"HeaderWithoutEndGetsOne", "[A]", "A", "y", "2", "[A]\r\ny=2\r\n"},
        Edit{"NewSectionBehindBlanksWithoutEnd", "[A]\nx=1\n ", "B", "y", "2", "[A]\nx=1\n \n[B]\ny=2\n"},
        Edit{"CaseAndSpellingAreTheFiles", "[GENERAL]\nLANG=a\n", "general", "lang", "b", "[GENERAL]\nLANG=b\n"},
        Edit{"BlanksInAHeaderDoNotCount", "[ A ]\nx=1\n", "A", "x", "2", "[ A ]\nx=2\n"},
        Edit{"BlanksAroundAnEqualValueStay", "[A]\n x =  42  \n", "A", "x", "42", "[A]\n x =  42  \n"},
        Edit{"BlanksGoWithTheOldValue", "[A]\n x =  42  \n", "A", "x", "7", "[A]\nx=7\n"},
        Edit{"MixedLineEndsStay", "[A]\r\nx=1\ny=2\r\nz=3\r;end", "A", "y", "9", "[A]\r\nx=1\ny=9\r\nz=3\r;end"},
        Edit{"ByteOrderMarkStaysFirst", "\xEF\xBB\xBF[A]\nx=1\n", "A", "x", "2", "\xEF\xBB\xBF[A]\nx=2\n"},
        Edit{"FirstOfTwoKeysCounts", "[A]\nx=1\nX=2\n", "A", "x", "3", "[A]\nx=3\nX=2\n"},
        Edit{"FirstOfTwoSectionsCounts", "[A]\nx=1\n[B]\n[a]\ny=2\n", "A", "y", "3", "[A]\nx=1\ny=3\n[B]\n[a]\ny=2\n"},
        Edit{"CommentedKeyIsNoKey", "[A]\n;x=1\n#x=2\n", "A", "x", "3", "[A]\n;x=1\n#x=2\nx=3\n"},
        Edit{"OpenBracketIsNeitherSectionNorKey", "[A]\n[x=1\n", "A", "x", "3", "[A]\n[x=1\nx=3\n"},
        Edit{"ValueKeepsItsOwnEqualsSigns", "[A]\nx=a=b;c\n", "A", "x", "p=q", "[A]\nx=p=q\n"},
        Edit{"KeyBeforeAnySectionIsAnothers", "x=1\n[A]\n", "A", "x", "3", "x=1\n[A]\nx=3\n"},
        Edit{"BytesOfOtherEncodingsStay", "[A]\nn=\xE9\xFF\n", "A", "x", "1", "[A]\nn=\xE9\xFF\nx=1\n"},
        Edit{"HandWrittenFileKeepsItsShape", "; mine\n\n[Other]\njunk\na = b\n\n[A]\n ; note\nx = 1 \n\n;tail\n", "A",
             "x", "2", "; mine\n\n[Other]\njunk\na = b\n\n[A]\n ; note\nx=2\n\n;tail\n"}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(IniDocument, WhatALineCannotHoldIsRefused) {
  const std::vector<std::array<std::string, 3>> refused{
      {"A", "x", "1\ny=2"}, {"A", "x", "1\ry=2"}, {"A", "x", std::string(1, '\0')},
      {"A", " ", "1"},      {"A", "x=y", "1"},    {"A", " ;x", "1"},
      {"A", "#x", "1"},     {"A", "[x", "1"},     {"A", "x\ny", "1"},
      {" ", "x", "1"},      {"A]", "x", "1"},     {"B]\n[C", "x", "1"},
  };
  for (const auto& [section, key, value] : refused) {
    IniDocument document = Parsed("[A]\nx=1\n");
    EXPECT_FALSE(document.Set(section, key, value)) << section << '|' << key << '|' << value;
    EXPECT_EQ(document.Text(), "[A]\nx=1\n");
  }
}

TEST(IniDocument, ErasingAKeyBringsNoOlderValueToLight) {
  IniDocument document = Parsed("[A]\nx=1\n;keep\nX = 2\ny=3");
  document.Erase("a", "x");
  EXPECT_EQ(document.Text(), "[A]\n;keep\ny=3");
  EXPECT_FALSE(document.Find("A", "x"));
  EXPECT_TRUE(document.Set("A", "x", "4"));
  EXPECT_EQ(document.Text(), "[A]\n;keep\ny=3\nx=4\n");
}

TEST(IniDocument, ErasingTheKeysOfASectionLeavesTheRest) {
  IniDocument document = Parsed("[A]\n;note\nx=1\nx=2\n\n[B]\nx=3\n");
  document.EraseKeys("a");
  EXPECT_EQ(document.Text(), "[A]\n;note\n\n[B]\nx=3\n");
  EXPECT_TRUE(document.Entries("A").empty());
  EXPECT_TRUE(document.Set("A", "x", "9"));
  EXPECT_EQ(document.Text(), "[A]\n;note\nx=9\n\n[B]\nx=3\n");
}

TEST(IniDocument, SectionsAreListedAsTheyAreSpelt) {
  EXPECT_EQ(Parsed("[b] ; c\nx=1\n[A\n;[C]\n  [ a ]\n[B]\n").Sections(), (std::vector<std::string>{"b", " a ", "B"}));
}

TEST(IniDocument, BinaryContentIsDamaged) {
  const auto utf16 = IniDocument::Parse(std::string_view{"\xFF\xFE[\0A\0]\0", 8});
  ASSERT_FALSE(utf16);
  EXPECT_EQ(utf16.error().kind, ErrorKind::Damaged);
  EXPECT_NE(utf16.error().message.find("byte 4 "), std::string::npos) << utf16.error().message;
}

// Work that grew with lines times edits would take minutes.
TEST(IniDocument, TenMegabytesOfAnythingAreEditedQuickly) {
  const auto start = std::chrono::steady_clock::now();
  for (const std::string_view piece : {"\n", "a=\n", ";\n", "[]\n", "aaaaaaaa"}) {
    SCOPED_TRACE(piece);
    std::string text = "[General]\n";
    while (text.size() < 10'000'000) text += piece;
    IniDocument document = Parsed(text);
    for (int i = 0; i < 3000; ++i) ASSERT_TRUE(document.Set("General", "key" + std::to_string(1000 + i), "1"));
    EXPECT_EQ(document.Find("general", "KEY3999"), "1");
    EXPECT_GE(document.Text().size(), text.size() + 3000 * std::string_view{"key1000=1\n"}.size());
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40));
}

}  // namespace
}  // namespace captoria
