// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/command_file.h"

#include <gmock/gmock.h>

#include <random>

#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

struct ParseRow {
  const char* name;
  std::string line;
  Command command;
};

class CommandLines : public testing::TestWithParam<ParseRow> {};

TEST_P(CommandLines, HoldTheirCommand) {
  const auto parsed = ParseCommand(GetParam().line);
  ASSERT_TRUE(parsed && *parsed);
  EXPECT_EQ(**parsed, GetParam().command);
}

const auto kRowName = [](const auto& row) { return std::string{row.param.name}; };

INSTANTIATE_TEST_SUITE_P(
    Select, CommandLines,
    testing::Values(
        ParseRow{"AllFields", R"(Select 2, "-"A, "?!")", SelectRule{2, "-", true, "?!", false}},
        ParseRow{"AnyCaseOfTheKeyword", R"(SELECT 1, "", "")", SelectRule{1, "", false, "", false}},
        ParseRow{"NoNumber", R"(select , "<i>", "x"a)", SelectRule{0, "<i>", false, "x", true}},
        ParseRow{"ANumberIsRounded", "select 1.8x,,", SelectRule{2, "", false, "", false}},
        ParseRow{"BlanksInsideStay", R"(select 0 ,  " a "  , " b " )", SelectRule{0, " a ", false, " b ", false}},
        ParseRow{"AStartTextEndsAtItsComma", R"(select , "x,y", "z")", SelectRule{0, "", false, "\", \"z", false}},
        ParseRow{"AnEndTextHasCommas", R"(select , "", ",,")", SelectRule{0, "", false, ",,", false}},
        ParseRow{"MarksAreNotLookedAt", "select , „x”, 'y'A", SelectRule{0, "x", false, "y", true}},
        ParseRow{"TheLoneLetterIsTheFlag", "select , A, \"a", SelectRule{0, "", true, "", true}},
        ParseRow{"ATabIsNoBlank", "select , \t\"x\", \"\"", SelectRule{0, "\"x", false, "", false}},
        ParseRow{"OneMarkAlone", "select , \", \"", SelectRule{0, "", false, "", false}}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    PosAlignment, CommandLines,
    testing::Values(ParseRow{"Both", "PosAlignment 35, c", PlacementCommand{35, "c", true, true}},
                    ParseRow{"PositionAlone", "posalignment 12, ", PlacementCommand{12, "", true, false}},
                    ParseRow{"AlignmentAlone", "PosAlignment , r", PlacementCommand{0, "r", false, true}},
                    ParseRow{"Neither", "PosAlignment ,", PlacementCommand{0, "", false, false}},
                    ParseRow{"LeadingDigits", "PosAlignment 7x, c", PlacementCommand{7, "c", true, true}},
                    ParseRow{"NoNumberIsZero", "PosAlignment x, C,d", PlacementCommand{0, "C,d", true, true}},
                    ParseRow{"BeyondAnInt", "PosAlignment 1e99, ", PlacementCommand{2147483647, "", true, false}}),
    kRowName);

TEST(CommandFile, LinesOfOtherKindsAreCountedAndIgnoredAndFaultyOnesKeepTheirNumber) {
  const auto lines = ParseCommands(
      "# a comment\r\n\r\n select 1,,\rselect,1\n#\nselect 2\r\nselect 2, \"a\"\nposalignment\nposalignment 3\n\n"
      "selects 1,,\r\nselect 4,,");
  ASSERT_EQ(lines.size(), 4u);
  const auto at = [&](std::size_t i) { return std::pair{lines[i].number, lines[i].command.has_value()}; };
  EXPECT_EQ(at(0), std::pair(6ul, false));
  EXPECT_EQ(at(1), std::pair(7ul, false));
  EXPECT_EQ(at(2), std::pair(9ul, false));
  EXPECT_EQ(at(3), std::pair(12ul, true));
}

// Whole characters of several scripts, and everything that has a meaning in a command line.
std::string RandomText(std::mt19937& random, bool commas) {
  const Lines characters{" ", "\"", "a", "A", "#", "\t", "é", "ς", "ש", "字", "😀", "\\", "'", "<i>", ","};
  std::string text;
  for (auto left = random() % 6; left > 0; --left)
    text += characters[random() % (characters.size() - (commas ? 0 : 1))];
  return text;
}

TEST(CommandFile, ReadsWhatItComposes) {
  for (unsigned seed = 0; seed < 5000; ++seed) {
    std::mt19937 random(seed);
    const auto flag = [&] { return random() % 2 == 0; };
    const SelectRule rule{static_cast<int>(random() % 5), RandomText(random, false), flag(), RandomText(random, true),
                          flag()};
    PlacementCommand placement;
    placement.toChangePos = flag();
    placement.toChangeAl = flag();
    if (placement.toChangePos) placement.position = static_cast<int>(random());
    if (placement.toChangeAl) placement.alignment = "lcr"[random() % 3];
    for (const Command& command : {Command{rule}, Command{placement}}) {
      const std::string line = std::visit([](const auto& one) { return ComposeCommand(one); }, command);
      const auto parsed = ParseCommand(line);
      ASSERT_TRUE(parsed && *parsed) << line;
      EXPECT_EQ(**parsed, command) << "seed " << seed << ": " << line;
    }
  }
}

TEST(CommandFile, ComposesWhatPeopleKnow) {
  EXPECT_EQ(ComposeCommand(SelectRule{2, "", false, "", false}), R"(Select 2, "", "")");
  EXPECT_EQ(ComposeCommand(SelectRule{-1, "", false, "", false}), R"(Select , "", "")");
  EXPECT_EQ(ComposeCommand(SelectRule{0, "-", true, "...", false}), R"(Select , "-"A, "...")");
  EXPECT_EQ(ComposeCommand(PlacementCommand{0, "l", true, true}), "PosAlignment 0, l");
  EXPECT_EQ(ComposeCommand(PlacementCommand{35, "l", true, false}), "PosAlignment 35, ");
  EXPECT_EQ(ComposeCommand(PlacementCommand{35, "l", false, true}), "PosAlignment , l");
}

class CommandFileOnDisk : public testing::Test {
 protected:
  TestFolder folder_;
  const std::string file_ = folder_.File("a.cbx");
};

TEST_F(CommandFileOnDisk, IsWrittenWithItsCommentFirst) {
  ASSERT_TRUE(WriteCommandFile(file_, "", {}));
  EXPECT_EQ(folder_.Get("a.cbx"), "# \r\n");
  const Lines lines{"Select 1, \"ό\", \"\"", "PosAlignment 1, "};
  ASSERT_TRUE(WriteCommandFile(file_, "two\r\nlines", lines));
  EXPECT_EQ(folder_.Get("a.cbx"), "# two  lines\r\nSelect 1, \"ό\", \"\"\r\nPosAlignment 1, \r\n");
  const auto read = ReadCommandFileText(file_);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->comment, "two  lines");
  EXPECT_EQ(read->lines, lines);
  EXPECT_FALSE(WriteCommandFile(folder_.File("none/a.cbx"), "", lines));
}

TEST_F(CommandFileOnDisk, AnEditorGetsTheLastCommentAndEveryOtherLineAsItIs) {
  folder_.Put("a.cbx", "# one\n  \n\n #no\n#\n# \n  Select 1\n# last \r\nx");
  const auto read = ReadCommandFileText(file_);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->comment, "last ");
  EXPECT_THAT(read->lines, ElementsAre(" #no", "#", "  Select 1", "x"));
}

TEST_F(CommandFileOnDisk, IsReadInTheCodePageOfTheFontOrInUnicode) {
  const auto start = [&](const std::string& bytes) {
    folder_.Put("a.cbx", bytes);
    const auto lines = ReadCommandFile(file_, 161);
    if (!lines || lines->size() != 1 || !lines->front().command) return std::string{"not read"};
    return std::get<SelectRule>(*lines->front().command).txtToStart;
  };
  EXPECT_EQ(start("select , \"\xFC\xF7\xE9\", \"\""), "όχι");
  EXPECT_EQ(start("\xEF\xBB\xBFselect , \"όχι\", \"\""), "όχι");
  EXPECT_EQ(start(std::string("\xFF\xFEs\0e\0l\0e\0c\0t\0 \0,\0\"\0\xCC\x03\"\0,\0", 26)), "ό");
}

}  // namespace
}  // namespace captoria
