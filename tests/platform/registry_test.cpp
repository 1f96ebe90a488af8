// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/registry.h"

#include <gtest/gtest.h>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

TEST(FileRegistry, ANewOneKnowsTheClassOfAviFiles) {
  const TestFolder folder;
  const FileRegistry registry(folder.File("keys"));
  EXPECT_EQ(registry.ReadValue(".AVI", ""), "AVIFile");
  EXPECT_TRUE(registry.KeyExists("avifile"));
  EXPECT_FALSE(registry.KeyExists("AVIFile\\shell"));
  EXPECT_FALSE(FileExists(folder.File("keys"))) << "asking writes nothing";
}

TEST(FileRegistry, WhatIsWrittenIsReadBack) {
  const TestFolder folder;
  const std::string path = folder.File("made/keys");
  const std::string text = "\"C:\\new\\\\ro\"\r\n [x]=@ \"Ωμέγα\" %1 \xFF\\";
  FileRegistry first(path);
  ASSERT_TRUE(first.CreateKey("AVIFile\\Shell\\A ]\\command"));
  ASSERT_TRUE(first.SetValue("avifile\\shell\\a ]\\COMMAND", "", text));
  ASSERT_TRUE(first.SetValue("AVIFile\\shell", "a \"name\"", "1"));
  ASSERT_TRUE(first.CreateKey("AVIFILE\\SHELL")) << "it is there already";
  const FileRegistry second(path);
  EXPECT_EQ(second.ReadValue("AVIFile\\shell\\A ]\\command", ""), text);
  EXPECT_EQ(second.ReadValue("AVIFile\\shell", "A \"NAME\""), "1");
  EXPECT_EQ(second.ReadValue(".avi", ""), "AVIFile");
}

TEST(FileRegistry, AKeyGoesWhenNoneIsBelowIt) {
  const TestFolder folder;
  FileRegistry registry(folder.File("keys"));
  ASSERT_TRUE(registry.CreateKey("A\\shell\\verb"));
  ASSERT_TRUE(registry.CreateKey("A\\shell play"));
  const auto refused = registry.DeleteKey("a\\SHELL");
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().message, folder.File("keys") + ": the key a\\SHELL has keys below it");
  EXPECT_TRUE(registry.DeleteKey("a\\shell\\VERB"));
  EXPECT_TRUE(registry.DeleteKey("A\\shell"));
  EXPECT_EQ(registry.DeleteKey("A\\shell").error().kind, ErrorKind::NotFound);
  EXPECT_TRUE(registry.KeyExists("A\\shell play"));
}

TEST(FileRegistry, RefusesNamesThatNoKeyHas) {
  const TestFolder folder;
  FileRegistry registry(folder.File("keys"));
  for (const auto& refused : {registry.CreateKey(""), registry.SetValue("", "", "x"), registry.DeleteKey("")}) {
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().message, "Invalid KeyName value");
  }
  EXPECT_EQ(registry.SetValue("none", "", "x").error().kind, ErrorKind::NotFound);
  EXPECT_FALSE(registry.CreateKey("A\n[B]"));
  EXPECT_FALSE(registry.CreateKey(std::string(1025, 'k')));
  EXPECT_FALSE(registry.SetValue("AVIFile", "a\nb", "x"));
  EXPECT_EQ(registry.SetValue("AVIFile", "", std::string(70000, 'x')).error().kind, ErrorKind::TooLarge);
  EXPECT_FALSE(FileExists(folder.File("keys")));
}

TEST(FileRegistry, ADamagedFileGivesWhatIsWholeAndCanBeChanged) {
  struct Row {
    const char* name;
    std::string content;
    const char* value;  // of ".avi"
  };
  for (const auto& [name, content, value] :
       {Row{"Empty", "", ""}, Row{"OnlyZeroBytes", std::string(4096, '\0'), ""},
        Row{"ValueOfNoKey", "@=\"x\"\n[.avi]\n", ""},
        Row{"ValueBehindADamagedKey", "[.avi]\n@=\"a\"\n[B\n@=\"b\"\n", "a"},
        Row{"BracketAlone", "[\n[]\n[.avi]\n@=\"a\"", "a"}, Row{"QuoteNotClosed", "[.avi]\n@=\"a\n", ""},
        Row{"EscapeAtTheEnd", "[.avi]\n@=\"a\\", ""}, Row{"TextBehindTheValue", "[.avi]\n@=\"a\"b\n", ""},
        Row{"NoQuotes", "[.avi]\n@=a\n=\n@\n\"\n", ""}, Row{"OtherLineEnds", "[.avi]\r\n  @=\"a\"\t\r\n", "a"},
        Row{"KeyWithoutItsParents", "[.AVI\\x\\y]\n", ""},
        Row{"KeyTooLong", "[.avi]\n@=\"a\"\n[" + std::string(9000, '\\') + "]\n@=\"b\"\n", "a"}}) {
    SCOPED_TRACE(name);
    const TestFolder folder;
    FileRegistry registry(folder.Put("keys", content));
    EXPECT_EQ(registry.ReadValue(".avi", ""), value);
    ASSERT_TRUE(registry.CreateKey(".avi\\shell"));
    EXPECT_TRUE(registry.KeyExists(".avi\\shell"));
    EXPECT_EQ(registry.ReadValue(".avi", ""), value);
  }
}

TEST(FileRegistry, AFileThatCannotBeReadOrWrittenStays) {
  const TestFolder folder;
  folder.Put("large", std::string(70000, ';'));
  FileRegistry large(folder.File("large"));
  EXPECT_EQ(large.CreateKey("A").error().kind, ErrorKind::TooLarge);
  EXPECT_EQ(folder.Get("large").size(), 70000u);

  // A file cannot contain a folder, not even for root.
  EXPECT_EQ(FileRegistry(folder.File("large/below/keys")).CreateKey("B").error().kind, ErrorKind::Unwritable);
}

}  // namespace
}  // namespace captoria
