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

TEST(ProgressFile, ALineIsTakenWholeOrNotAtAll) {
  struct Row {
    const char* name;
    const char* content;
    Told told;
  };
  const TestFolder folder;
  for (const auto& [name, content, told] :
       {Row{"NarrowNumbers", "3 8\n", Told({3, 8})}, Row{"LeadingZeros", "0003 0008\n", Told({3, 8})},
        Row{"TheEnd", "8 8\n", Told({8, 8})}, Row{"Empty", "", {}}, Row{"NotYetEnded", "3 8", {}},
        Row{"OneNumber", "3\n", {}}, Row{"MoreThanAll", "9 8\n", {}}, Row{"OfNothing", "0 0\n", {}},
        Row{"Negative", "-1 8\n", {}}, Row{"Words", "three 8\n", {}}, Row{"MoreBehind", "3 8\n9", {}},
        Row{"BeyondTheLargestNumber", "3 99999999999999999999\n", {}}}) {
    EXPECT_EQ(ReadProgress(folder.Put("progress", content)), told) << name;
  }
}

}  // namespace
}  // namespace captoria
