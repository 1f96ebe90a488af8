// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/registry.h"

#include <gtest/gtest.h>

#include "tests/support/full_disk.h"
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

struct Damage {
  const char* name;
  std::string content;
  const char* value;  // of ".avi"
};

class DamagedRegistry : public testing::TestWithParam<Damage> {};

TEST_P(DamagedRegistry, GivesWhatIsWholeAndCanBeChanged) {
  const TestFolder folder;
  FileRegistry registry(folder.Put("keys", GetParam().content));
  EXPECT_EQ(registry.ReadValue(".avi", ""), GetParam().value);
  ASSERT_TRUE(registry.CreateKey(".avi\\shell"));
  EXPECT_TRUE(registry.KeyExists(".avi\\shell"));
  EXPECT_EQ(registry.ReadValue(".avi", ""), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedRegistry,
    testing::Values(Damage{"Empty", "", ""}, Damage{"OnlyZeroBytes", std::string(4096, '\0'), ""},
                    Damage{"ValueOfNoKey", "@=\"x\"\n[.avi]\n", ""},
                    Damage{"ValueBehindADamagedKey", "[.avi]\n@=\"a\"\n[B\n@=\"b\"\n", "a"},
                    Damage{"BracketAlone", "[\n[]\n[.avi]\n@=\"a\"", "a"},
                    Damage{"QuoteNotClosed", "[.avi]\n@=\"a\n", ""}, Damage{"EscapeAtTheEnd", "[.avi]\n@=\"a\\", ""},
                    Damage{"TextBehindTheValue", "[.avi]\n@=\"a\"b\n", ""},
                    Damage{"NoQuotes", "[.avi]\n@=a\n=\n@\n\"\n", ""},
                    Damage{"OtherLineEnds", "[.avi]\r\n  @=\"a\"\t\r\n", "a"},
                    Damage{"KeyWithoutItsParents", "[.AVI\\x\\y]\n", ""},
                    Damage{"KeyTooLong", "[.avi]\n@=\"a\"\n[" + std::string(9000, '\\') + "]\n@=\"b\"\n", "a"}),
    [](const auto& row) { return std::string{row.param.name}; });

TEST(FileRegistry, AFileThatCannotBeReadOrWrittenStays) {
  const TestFolder folder;
  folder.Put("large", std::string(70000, ';'));
  FileRegistry large(folder.File("large"));
  EXPECT_EQ(large.CreateKey("A").error().kind, ErrorKind::TooLarge);
  EXPECT_EQ(folder.Get("large").size(), 70000u);

  folder.Put("keys", "[A]\n");
  WithFullDisk(
      4, [&] { EXPECT_EQ(FileRegistry(folder.File("keys")).CreateKey("B").error().kind, ErrorKind::Unwritable); });
  EXPECT_EQ(folder.Get("keys"), "[A]\n");

  // No folder can be below a file, for root either.
  EXPECT_EQ(FileRegistry(folder.File("keys/below/keys")).CreateKey("B").error().kind, ErrorKind::Unwritable);
}

}  // namespace
}  // namespace captoria
