// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_edit.h"

#include <gmock/gmock.h>

#include <functional>

#include "tests/support/full_disk.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;

// All that a translator may have put into a file, none of which is ours to touch.
const std::string kFile =
    "<?xml version='1.0' encoding='windows-1253' ?>\r\n"
    "<!-- mine: <W_Design a='no'/> -->\r\n"
    "<?keep this?>\r\n"
    "<Language own=\"1\">\r\n"
    "\t<Private Creator='Ann'\r\n\t\tnote = 'a=\"b\" > c'/>\r\n"
    "  <W_Design\n    a='It&apos;s &amp; &#x41;'  \n    b=\"\" ><deep a='x'/>text</W_Design >\r\n"
    "  <!-- last </Language> -->\r\n"
    "</Language>\r\n<!-- behind </Language> -->\r\n";

EditedLanguage Edit(const std::string& text) {
  auto edited = EditedLanguage::Parse(text);
  EXPECT_TRUE(edited) << edited.error().message;
  return std::move(*edited);
}

std::string Replaced(std::string text, const std::string& part, const std::string& by) {
  EXPECT_NE(text.find(part), text.npos) << part;
  return text.replace(text.find(part), part.size(), by);
}

// What Parse makes of it: all of it stays, but for the encoding.
const std::string kUtf8File = Replaced(kFile, "windows-1253", "UTF-8");

struct Change {
  const char* name;
  std::function<bool(EditedLanguage&)> act;
  std::string part;  // of the file, which becomes
  std::string by;
};

const Change kChanges[] = {
    {"TheSameTextWrittenOtherwise", [](auto& e) { return e.WriteAttribute("W_Design", "a", "It's & A"); }, "a='It",
     "a='It"},
    {"InItsOwnQuotationMarks", [](auto& e) { return e.WriteAttribute("W_Design", "a", "'\"<é>&amp;\n\t"); },
     "It&apos;s &amp; &#x41;", "&apos;\"&lt;é&gt;&amp;amp;&#10;&#9;"},
    {"AnEmptyTextIsFilled", [](auto& e) { return e.WriteAttribute("W_Design", "b", "\"x "); }, "b=\"\"",
     "b=\"&quot;x \""},
    {"AnItemStandsAsTheOneBeforeIt", [](auto& e) { return e.AddAttribute("W_Design", "c", "x"); }, "b=\"\"",
     "b=\"\"\n    c=\"x\""},
    {"BehindAValueThatLooksLikeATag", [](auto& e) { return e.AddAttribute("Private", "ProgramVersion", "3"); }, "> c'",
     "> c'\r\n\t\tProgramVersion=\"3\""},
    {"ASectionIsTheLastOfTheRoot", [](auto& e) { return e.AddSection("W_Module"); }, "\r\n</Language>",
     "\r\n  <W_Module/>\r\n</Language>"}};

TEST(LanguageEdit, AChangeKeepsAllElseByteForByte) {
  for (const auto& [name, act, part, by] : kChanges) {
    SCOPED_TRACE(name);
    EditedLanguage edited = Edit(kFile);
    EXPECT_EQ(edited.Source(), kUtf8File);
    EXPECT_TRUE(act(edited));
    EXPECT_EQ(edited.Source(), Replaced(kUtf8File, part, by));
    EXPECT_EQ(edited.Changed(), part != by);
  }
}

TEST(LanguageEdit, WhatCannotBeWrittenChangesNothing) {
  EditedLanguage edited = Edit(kFile);
  EXPECT_FALSE(edited.WriteAttribute("W_Design", "none", "x"));
  EXPECT_FALSE(edited.WriteAttribute("deep", "a", "x")) << "not a child of the root";
  EXPECT_FALSE(edited.WriteAttribute("", "own", "x")) << "the root is no section";
  for (const char* value : {"\x01", "\xFF", "\xEF\xBF\xBF"})
    EXPECT_FALSE(edited.WriteAttribute("W_Design", "a", value));
  EXPECT_FALSE(edited.AddAttribute("W_Design", "a", "there already"));
  EXPECT_FALSE(edited.AddAttribute("None", "a", "x"));
  for (const char* name : {"", "1", "a b", "c='1' d", "x/><y", "&", "c>"}) {
    EXPECT_FALSE(edited.AddAttribute("W_Design", name, "x")) << name;
    EXPECT_FALSE(edited.AddSection(name)) << name;
  }
  EXPECT_FALSE(edited.AddSection("W_Design"));
  EXPECT_EQ(edited.Source(), kUtf8File);
  EXPECT_FALSE(edited.Changed());
}

TEST(LanguageEdit, ARootOfAnyShapeTakesASection) {
  for (const auto& [before, after] : std::vector<std::pair<std::string, std::string>>{
           {"<a/>", "<a>\n  <S/>\n</a>"},
           {"<a></a>", "<a>\n  <S/>\n</a>"},
           {"<a x='/>'><b/></a>", "<a x='/>'><b/>\n  <S/>\n</a>"},
           {"<a\n/><!-- </a> -->", "<a\n>\n  <S/>\n</a><!-- </a> -->"},
           {"<!DOCTYPE a [<!ENTITY e '</a>'>]><a>\n</a>", "<!DOCTYPE a [<!ENTITY e '</a>'>]><a>\n  <S/>\n</a>"}}) {
    EditedLanguage edited = Edit(before);
    EXPECT_TRUE(edited.AddSection("S")) << before;
    EXPECT_TRUE(edited.AddAttribute("S", "k", "v"));
    EXPECT_EQ(edited.Source(), Replaced(after, "<S/>", "<S k=\"v\"/>"));
  }
}

TEST(LanguageEdit, WalkingTheOriginalCreatesWhatIsMissing) {
  const EditedLanguage original =
      Edit("<L><Private Creator='Ann'/><W_Design a='One' b='2'/><Empty/><W_Module s1=' Three'/></L>");
  EditedLanguage edited = Edit("<L><W_Design b='2'/></L>");
  std::vector<std::string> walked;
  for (auto at = NextItem(original.Sections(), {}); at; at = NextItem(original.Sections(), *at)) {
    walked.push_back(at->section + "/" + at->name);
    const bool had_section = edited.Has({at->section, ""});
    EXPECT_NE(edited.AddSection(at->section), had_section);
    if (at->name.empty() || edited.Has(*at)) continue;
    EXPECT_TRUE(edited.AddAttribute(at->section, at->name, *original.Document().Text(at->section, at->name)));
  }
  EXPECT_THAT(walked, ElementsAre("Private/Creator", "W_Design/a", "W_Design/b", "Empty/", "W_Module/s1"));
  EXPECT_EQ(edited.Document().Text("W_Module", "s1"), " Three");
  EXPECT_EQ(NextItem(original.Sections(), {"W_Design", ""}), (LanguageNode{"W_Design", "a"}));
  EXPECT_EQ(NextItem(original.Sections(), {"W_Design", "gone"}), std::nullopt);
  EXPECT_EQ(NextItem({}, {}), std::nullopt);
}

TEST(LanguageEdit, LettersLeftAsTheyWereAreUntranslated) {
  const EditedLanguage edited = Edit("<L><Private Creator='Ann'/><W a='One' b='%1: …' c='' d='é' e='Eins'/></L>");
  EXPECT_EQ(edited.StateOf({"W", "a"}, "One"), ItemState::Untranslated);
  EXPECT_EQ(edited.StateOf({"W", "d"}, "é"), ItemState::Untranslated);
  EXPECT_EQ(edited.StateOf({"W", "b"}, "%1: …"), ItemState::Translated);
  EXPECT_EQ(edited.StateOf({"W", "c"}, ""), ItemState::Translated);
  EXPECT_EQ(edited.StateOf({"W", "e"}, "One"), ItemState::Translated);
  EXPECT_EQ(edited.StateOf({"W", "f"}, "One"), ItemState::Missing);
  EXPECT_EQ(edited.StateOf({"Private", "Creator"}, "Ann"), ItemState::Translated);
}

TEST(LanguageEdit, TheVersionIsFoundWhateverItsCase) {
  EXPECT_EQ(LanguageVersion(Edit("<L><Private programversion=' 3.4.0 '/></L>").Sections()), "3.4.0");
  EXPECT_EQ(LanguageVersion(Edit("<L><Other ProgramVersion='1'/></L>").Sections()), "?.0.0");
}

TEST(LanguageEdit, SavingNamesCreatorAndVersionAndReadsBackTheSame) {
  const TestFolder folder;
  auto edited = EditedLanguage::Open(folder.Put("a.xml", Replaced(kFile, "b=\"\"", "b=\"\xC1\"")));
  ASSERT_TRUE(edited) << edited.error().message;
  ASSERT_TRUE(edited->WriteAttribute("W_Design", "a", "Ä\r\n"));
  ASSERT_TRUE(edited->Save(folder.File("new/b.xml"), "Bob & \"I\"", "3.5.0"));
  EXPECT_FALSE(edited->Changed());
  const auto again = LanguageDocument::Load(folder.File("new/b.xml"));
  ASSERT_TRUE(again) << again.error().message;
  EXPECT_EQ(again->Sections(), edited->Sections());
  EXPECT_EQ(again->Text("W_Design", "a"), "Ä\r\n");
  EXPECT_EQ(again->Text("W_Design", "b"), "Α") << "a code page turned into UTF-8";
  EXPECT_EQ(again->Text("Private", "Creator"), "Bob & \"I\"");
  EXPECT_EQ(again->Text("Private", "ProgramVersion"), "3.5.0");
}

TEST(LanguageEdit, ASaveThatFailsLeavesTheOldFileAndTheMark) {
  const TestFolder folder;
  const std::string path = folder.Put("a.xml", "<L/>");
  EditedLanguage edited = Edit("<L/>");
  EXPECT_EQ(edited.Save(path, "\x02", "1").error().kind, ErrorKind::Unsupported);
  EXPECT_TRUE(edited.Save(path, "Ann", "1"));
  EXPECT_FALSE(edited.Changed());
  const std::string saved = folder.Get("a.xml");
  WithFullDisk(4, [&] { EXPECT_FALSE(edited.Save(path, "Ann", "1")); });
  EXPECT_TRUE(edited.Changed()) << "nothing is new, yet it is not saved";
  EXPECT_EQ(folder.Get("a.xml"), saved);
  EXPECT_FALSE(edited.Save(path + "/b.xml", "Ann", "1")) << "the folder cannot be created";
}

}  // namespace
}  // namespace captoria
