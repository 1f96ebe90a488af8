// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/progress_file.h"

#include <sys/stat.h>

#include <cstdint>

#include "tests/support/other_process.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using Told = std::optional<std::pair<std::size_t, std::size_t>>;

TEST(ProgressFile, TellsTheFirstStepAtOnceAndLaterOnesNowAndThen) {
  const TestFolder folder;
  const std::string path = folder.Put("progress", "what another tool left, longer than any line can ever get to be\n");
  ProgressFile file(path);
  EXPECT_EQ(ReadProgress(path), Told());
  file.Write(0, SIZE_MAX);
  EXPECT_EQ(ReadProgress(path), Told({0, SIZE_MAX}));
  file.Write(7, 8);
  EXPECT_EQ(ReadProgress(path), Told({0, SIZE_MAX})) << "too early";
  EXPECT_TRUE(Soon([&] {
    file.Write(8, 9);
    return ReadProgress(path) == Told({8, 9});
  }));
}

TEST(ProgressFile, LeavesAloneWhatItMustNotWrite) {
  const TestFolder folder;
  const std::string target = folder.Put("target", "kept");
  std::filesystem::create_symlink(target, folder.File("link"));
  ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
  for (const std::string& path :
       {folder.File("link"), folder.File("pipe"), folder.File("none/file"), folder.Path(), std::string{}}) {
    ProgressFile(path).Write(1, 2);
    EXPECT_EQ(ReadProgress(path), Told()) << path;
  }
  EXPECT_EQ(folder.Get("target"), "kept");
}

struct Line {
  const char* name;
  const char* content;
  Told told;
};

class ProgressLine : public testing::TestWithParam<Line> {};

TEST_P(ProgressLine, IsTakenWholeOrNotAtAll) {
  const TestFolder folder;
  EXPECT_EQ(ReadProgress(folder.Put("progress", GetParam().content)), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ProgressLine,
    testing::Values(Line{"NarrowNumbers", "3 8\n", Told({3, 8})}, Line{"LeadingZeros", "0003 0008\n", Told({3, 8})},
                    Line{"TheEnd", "8 8\n", Told({8, 8})}, Line{"Empty", "", {}}, Line{"NotYetEnded", "3 8", {}},
                    Line{"OneNumber", "3\n", {}}, Line{"MoreThanAll", "9 8\n", {}}, Line{"OfNothing", "0 0\n", {}},
                    Line{"Negative", "-1 8\n", {}}, Line{"Words", "three 8\n", {}}, Line{"MoreBehind", "3 8\n9", {}},
                    Line{"BeyondTheLargestNumber", "3 99999999999999999999\n", {}}),
    [](const auto& row) { return std::string{row.param.name}; });

}  // namespace
}  // namespace captoria
