// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/files.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/full_disk.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

std::size_t FilesIn(const TestFolder& folder) { return ListFiles(folder.Path(), "*").size(); }

TEST(Files, AFullDiskKeepsTheOldFileAndLeavesNothingBeside) {
  const TestFolder folder;
  const std::string path = folder.Put("a.ini", "old");
  WithFullDisk(4096, [&] {
    const auto written = WriteWholeFile(path, std::string(100'000, 'x'));
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().kind, ErrorKind::Unwritable);
    EXPECT_THAT(written.error().message, HasSubstr(path));
  });
  EXPECT_EQ(folder.Get("a.ini"), "old");
  EXPECT_EQ(FilesIn(folder), 1u);
}

TEST(Files, WritingThroughALinkKeepsTheLinkAndThePermissions) {
  const TestFolder folder;
  const std::string target = folder.Put("target", "old");
  ASSERT_EQ(chmod(target.c_str(), 0640), 0);
  fs::create_symlink("target", folder.File("link"));
  ASSERT_TRUE(WriteWholeFile(folder.File("link"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(folder.Get("target"), "new");
  EXPECT_EQ(static_cast<unsigned>(fs::status(target).permissions()), 0640u);
}

TEST(Files, CopiesAreWholeAndStayExecutable) {
  const TestFolder folder;
  const std::string from = folder.Put("tool", "#!" + std::string(200'000, 'x'));
  ASSERT_EQ(chmod(from.c_str(), 0755), 0);
  WithFullDisk(100'000, [&] { EXPECT_FALSE(CopyWholeFile(from, folder.File("copy"))); });
  EXPECT_EQ(FilesIn(folder), 1u);
  ASSERT_TRUE(CopyWholeFile(from, folder.File("copy")));
  EXPECT_EQ(access(folder.File("copy").c_str(), X_OK), 0);
  EXPECT_EQ(folder.Get("copy"), folder.Get("tool"));
  fs::create_hard_link(from, folder.File("same"));
  for (const char* same : {"same", "./tool"}) EXPECT_FALSE(CopyWholeFile(from, folder.File(same))) << same;
}

TEST(Files, RemovingTakesFilesOnly) {
  const TestFolder folder;
  EXPECT_TRUE(RemoveFile(folder.Put("a", "")));
  EXPECT_TRUE(RemoveFile(folder.File("a")));
  EXPECT_FALSE(RemoveFile(folder.Path()));
  EXPECT_EQ(FilesIn(folder), 0u);
}

TEST(Files, RenamingNeverReplaces) {
  const TestFolder folder;
  const std::string from = folder.Put("from", "1");
  const std::string taken = folder.Put("taken", "2");
  EXPECT_FALSE(RenameWithoutReplacing(from, taken));
  EXPECT_EQ(folder.Get("taken"), "2");
  EXPECT_TRUE(RenameWithoutReplacing(from, folder.File("free")));
  EXPECT_EQ(folder.Get("free"), "1");
  EXPECT_FALSE(FileExists(from));
}

TEST(Files, ReadingIsBoundedAndSaysWhatIsWrong) {
  const TestFolder folder;
  const std::string path = folder.Put("a", "12345");
  EXPECT_EQ(ReadWholeFile(path, 5).value(), "12345");
  EXPECT_EQ(ReadWholeFile(path, 4).error().kind, ErrorKind::TooLarge);
  EXPECT_EQ(ReadWholeFile("/dev/zero", 100'000).error().kind, ErrorKind::TooLarge);
  EXPECT_EQ(ReadWholeFile(folder.Path()).error().kind, ErrorKind::Unreadable);
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  const auto pipe = ReadWholeFile(folder.File("pipe"));
  ASSERT_FALSE(pipe) << "without a writer it would read as empty";
  EXPECT_EQ(pipe.error().kind, ErrorKind::Unreadable);
  EXPECT_EQ(ReadWholeFile(folder.File("none")).error().kind, ErrorKind::NotFound);
  EXPECT_GT(ReadWholeFile("/proc/self/status").value().size(), 100u) << "files that report no size are read as well";
}

TEST(Files, ListingMatchesWildcardsWithoutRegardToCase) {
  const TestFolder folder;
  for (const char* name : {"Film.srt", "film.en.SRT", "Film 2.srt", "film.avi", "[x]*.srt"}) folder.Put(name, "");
  fs::create_directory(folder.File("film.folder.srt"));
  EXPECT_THAT(ListFiles(folder.Path(), "film*.srt"), ElementsAre("Film 2.srt", "Film.srt", "film.en.SRT"));
  EXPECT_THAT(ListFiles(folder.Path(), "film.???"), ElementsAre("Film.srt", "film.avi"));
  EXPECT_THAT(ListFiles(folder.File("none"), "*"), ElementsAre());
  folder.Put(std::string(200, 'a'), "");
  EXPECT_THAT(ListFiles(folder.Path(), "*a*a*a*a*a*a*a*a*a*a*a*b"), ElementsAre()) << "has to end at once";
}

}  // namespace
}  // namespace captoria
