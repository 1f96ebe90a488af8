// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A folder of the test's own, removed with all it holds when the test ends.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "platform/files.h"

namespace captoria {

class TestFolder {
 public:
  TestFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "captoria-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no temporary folder";
    path_ = name;
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }

  // Writes `content` to the file `name`, which may lie in folders yet to be made, and gives its path.
  std::string Put(const std::string& name, const std::string& content) const {
    EXPECT_TRUE(CreateFolder(std::filesystem::path(File(name)).parent_path()));
    EXPECT_TRUE(WriteWholeFile(File(name), content, Sync::No));
    return File(name);
  }

  // The content of the file `name`; an empty text when it cannot be read.
  std::string Get(const std::string& name) const { return ReadWholeFile(File(name)).value_or(""); }

 private:
  std::string path_;
};

}  // namespace captoria
