// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The window program as file managers start it, where nobody is there to press a button.
#include <gmock/gmock.h>

#include <cstdlib>

#include "platform/files.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;

// Runs on "film.avi", named relative to the folder; 124 when it had to be ended.
int RunIn(const TestFolder& folder) {
  const std::string run = "cd '" + folder.Path() + "' && QT_QPA_PLATFORM=offscreen timeout 60 " + CAPTORIA_BIN +
                          "/Captoria --data data /AUTO film.avi 2>errors";
  const int status = std::system(run.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(UnattendedWindow, WaitsForNobody) {
  TestFolder folder;
  const std::string make = "ffmpeg -nostdin -v error -f lavfi -i testsrc2=s=320x240:r=25:d=1 -c:v mpeg4 '";
  ASSERT_EQ(std::system((make + folder.File("film.avi") + "'").c_str()), 0);
  folder.Put("film.srt", "1\n00:00:00,100 --> 00:00:00,900\nHello\n");
  folder.Put("data/Captoria.ini", std::string("[Gen\0eral]\xFF\xFE", 12));
  EXPECT_EQ(RunIn(folder), 0) << folder.Get("errors");
  EXPECT_FALSE(folder.Get("film.divx").empty());
  EXPECT_THAT(folder.Get("errors"), HasSubstr("Captoria.ini"));
}

}  // namespace
}  // namespace captoria
