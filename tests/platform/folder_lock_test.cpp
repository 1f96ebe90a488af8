// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/folder_lock.h"

#include <gtest/gtest.h>

#include "platform/locked_file.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

bool IsFree(const TestFolder& folder) { return FolderLock::TryLock(folder.Path()).value().has_value(); }

TEST(FolderLock, IsHeldByOneObjectUntilThatIsGone) {
  const TestFolder folder, other;
  {
    auto first = FolderLock::TryLock(folder.Path()).value();
    ASSERT_TRUE(first);
    FolderLock moved(std::move(*first));
    EXPECT_FALSE(IsFree(folder)) << "moving keeps it";
    first.reset();
    EXPECT_FALSE(IsFree(folder));
    EXPECT_TRUE(IsFree(other));
    moved = FolderLock::TryLock(other.Path()).value().value();
    EXPECT_TRUE(IsFree(folder)) << "the one replaced is freed";
    EXPECT_FALSE(IsFree(other));
  }
  EXPECT_TRUE(IsFree(other));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(FolderLock, LookingTakesNoLock) {
  const TestFolder folder;
  EXPECT_FALSE(IsLocked(folder.Path()));
  EXPECT_TRUE(IsFree(folder));
  LockWatch watch(folder.Path());
  ASSERT_TRUE(watch.HasBegun());
  EXPECT_FALSE(watch.IsLocked());
  EXPECT_TRUE(IsFree(folder));
  const auto lock = FolderLock::TryLock(folder.Path()).value();
  EXPECT_TRUE(IsLocked(folder.Path()) && watch.IsLocked());
}

TEST(FolderLock, NeedsAFolder) {
  const TestFolder folder;
  for (const std::string& path : {folder.File("none"), folder.Put("file", "")}) {
    const auto lock = FolderLock::TryLock(path);
    ASSERT_FALSE(lock);
    EXPECT_EQ(lock.error().kind, ErrorKind::NotFound);
    EXPECT_TRUE(lock.error().message.starts_with(path + ": ")) << lock.error().message;
  }
}

}  // namespace
}  // namespace captoria
