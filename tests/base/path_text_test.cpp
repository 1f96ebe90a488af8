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

class PathText : public testing::TestWithParam<PathRow> {};

TEST_P(PathText, ComesApart) {
  const PathRow& row = GetParam();
  EXPECT_EQ(GetPathOnly(row.path), row.folder);
  EXPECT_EQ(GetFileNameOnly(row.path), row.file);
  EXPECT_EQ(RemoveExt(row.file), row.without_extension);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathText,
                         testing::Values(PathRow{"Backslashes", "C:\\a\\b.avi", "C:\\a", "b.avi", "b"},
                                         PathRow{"Slashes", "/m/films/a.en.srt", "/m/films", "a.en.srt", "a.en"},
                                         PathRow{"BareNameIsItsOwnFolder", "b.avi", "b.avi", "b.avi", "b"},
                                         PathRow{"BackslashInAUnixName", "/m/a\\b.avi", "/m", "a\\b.avi", "a\\b"},
                                         PathRow{"NoExtension", "/m.x/film", "/m.x", "film", "film"},
                                         PathRow{"BytesThatAreNoUtf8", "/m\xFF/\xE9.avi", "/m\xFF", "\xE9.avi",
                                                 "\xE9"}),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(PathText, JoinsWithTheSeparatorOfTheFolder) {
  EXPECT_EQ(JoinPath("/m", "a"), "/m/a");
  EXPECT_EQ(JoinPath("/m/", "a"), "/m/a");
  EXPECT_EQ(JoinPath("C:\\a", "b"), "C:\\a\\b");
}

}  // namespace
}  // namespace captoria
