// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/document_opener.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/other_process.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

class DesktopOpenerTest : public testing::Test {
 protected:
  DesktopOpenerTest() {
    ::setenv("PATH", folder_.Path().c_str(), 1);
    std::filesystem::current_path(folder_.Path());
  }
  ~DesktopOpenerTest() override {
    ::setenv("PATH", path_.c_str(), 1);
    std::filesystem::current_path(working_folder_);
  }

  const std::string path_ = ::getenv("PATH");
  const std::filesystem::path working_folder_ = std::filesystem::current_path();
  TestFolder folder_;
};

TEST_F(DesktopOpenerTest, NothingIsTakenForSomethingElse) {
  ::chmod(folder_.Put("xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" >opened.new; /bin/mv opened.new opened\n").c_str(),
          0700);
  folder_.Put("film; $(touch hurt).divx", "");
  folder_.Put("part 1:a.divx", "");
  const std::string folder = std::filesystem::current_path().string() + "/";
  using Case = std::pair<std::string, std::string>;
  for (const auto& [document, argument] :
       {Case{"film; $(touch hurt).divx", folder + "film; $(touch hurt).divx"},
        Case{"part 1:a.divx", folder + "part 1:a.divx"}, Case{"--version", folder + "--version"},
        Case{"https://example.org/?a=b&c", "https://example.org/?a=b&c"}}) {
    folder_.Put("opened", "");
    EXPECT_TRUE(DesktopOpener().Open(document)) << document;
    EXPECT_TRUE(Soon([&, wanted = argument + "|"] { return folder_.Get("opened") == wanted; }))
        << folder_.Get("opened");
  }
}

TEST_F(DesktopOpenerTest, SaysWhatIsMissing) {
  const auto opened = DesktopOpener().Open("film.divx");
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().kind, ErrorKind::Unsupported);
  EXPECT_EQ(opened.error().message, "film.divx: cannot be opened: xdg-open is not installed (package xdg-utils)");
}

}  // namespace
}  // namespace captoria
