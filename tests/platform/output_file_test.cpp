// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/output_file.h"

#include <gmock/gmock.h>

#include "platform/input_file.h"
#include "tests/support/full_disk.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> FilesIn(const TestFolder& folder) { return ListFiles(folder.Path(), "*"); }

TEST(OutputFile, AppearsWholeOnCommitAndReplaces) {
  const TestFolder folder;
  folder.Put("film", "old");
  auto file = OutputFile::Create(folder.File("film"));
  ASSERT_TRUE(file);
  ASSERT_TRUE(file->Append("0123456789"));
  ASSERT_TRUE(file->Append(std::string(600'000, 'x')));
  const std::uint8_t patch[] = {'A', 'B'};
  ASSERT_TRUE(file->WriteAt(2, patch));
  ASSERT_TRUE(file->Append("end"));
  EXPECT_EQ(folder.Get("film"), "old");
  ASSERT_TRUE(file->Commit());
  EXPECT_EQ(folder.Get("film"), "01AB456789" + std::string(600'000, 'x') + "end");
  EXPECT_THAT(FilesIn(folder), ElementsAre("film"));
}

TEST(OutputFile, LeavesNothingWhenItIsDroppedOrTheDiskIsFull) {
  const TestFolder folder;
  { ASSERT_TRUE(OutputFile::Create(folder.File("film"))->Append("abc")); }
  WithFullDisk(100'000, [&] {
    auto written = OutputFile::Create(folder.File("film"));
    EXPECT_EQ(written->Append(std::string(300'000, 'x')).error().kind, ErrorKind::Unwritable);
    auto appended = OutputFile::Create(folder.File("film"));
    EXPECT_TRUE(appended->Append(std::string(200'000, 'y'))) << "still in the buffer";
    EXPECT_FALSE(appended->Commit());
  });
  EXPECT_THAT(FilesIn(folder), IsEmpty());
}

TEST(InputFile, ReadsPlacesAndKnowsItsEnd) {
  const TestFolder folder;
  auto file = InputFile::Open(folder.Put("a", "0123456789"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->Size(), 10u);
  std::uint8_t four[4];
  EXPECT_EQ(file->ReadAt(8, four).value(), 2u);
  EXPECT_EQ(four[1], '9');
  EXPECT_TRUE(file->ReadExactly(6, four));
  EXPECT_EQ(file->ReadExactly(7, four).error().kind, ErrorKind::Damaged);
  EXPECT_EQ(InputFile::Open(folder.Path()).error().kind, ErrorKind::Unreadable);
  EXPECT_EQ(InputFile::Open(folder.File("none")).error().kind, ErrorKind::NotFound);
}

TEST(InputFile, OneFileByTwoNamesIsOneFile) {
  const TestFolder folder;
  const std::string a = folder.Put("a", "1"), b = folder.Put("b", "1");
  std::filesystem::create_symlink("a", folder.File("link"));
  EXPECT_TRUE(IsSameFile(a, folder.File("link")));
  EXPECT_TRUE(IsSameFile(a, folder.Path() + "/./a"));
  EXPECT_FALSE(IsSameFile(a, b));
  EXPECT_FALSE(IsSameFile(a, folder.File("none")));
}

}  // namespace
}  // namespace captoria
