// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/path_text.h"

#include <gtest/gtest.h>

namespace captoria {
namespace {

struct PathRow {
  const char* name;
  std::string_view path, folder, file, without_extension;
};

TEST(PathText, ComesApart) {
  const std::vector<PathRow> rows{
      {"Backslashes", "C:\\a\\b.avi", "C:\\a", "b.avi", "b"},
      {"Slashes", "/m/films/a.en.srt", "/m/films", "a.en.srt", "a.en"},
      {"BareNameIsItsOwnFolder", "b.avi", "b.avi", "b.avi", "b"},
      {"BackslashInAUnixName", "/m/a\\b.avi", "/m", "a\\b.avi", "a\\b"},
      {"NoExtension", "/m.x/film", "/m.x", "film", "film"},
      {"BytesThatAreNoUtf8", "/m\xFF/\xE9.avi", "/m\xFF", "\xE9.avi", "\xE9"},
  };
  for (const auto& [name, path, folder, file, without_extension] : rows) {
    EXPECT_EQ(GetPathOnly(path), folder) << name;
    EXPECT_EQ(GetFileNameOnly(path), file) << name;
    EXPECT_EQ(RemoveExt(file), without_extension) << name;
  }
}

TEST(PathText, JoinsWithTheSeparatorOfTheFolder) {
  EXPECT_EQ(JoinPath("/m", "a"), "/m/a");
  EXPECT_EQ(JoinPath("/m/", "a"), "/m/a");
  EXPECT_EQ(JoinPath("C:\\a", "b"), "C:\\a\\b");
}

}  // namespace
}  // namespace captoria
