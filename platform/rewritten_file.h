// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A small file whose content is replaced again and again while others read it, such as one that says how far a job is.
// It never holds up the job: a write that fails is dropped.
#pragma once

#include <string>
#include <string_view>

namespace captoria {

class RewrittenFile {
 public:
  // Creates the file `path` or empties it. An empty path or a file that cannot be written leaves it closed. Neither a
  // symbolic link is followed nor a pipe waited for.
  explicit RewrittenFile(const std::string& path);
  RewrittenFile(const RewrittenFile&) = delete;
  RewrittenFile& operator=(const RewrittenFile&) = delete;
  ~RewrittenFile();

  bool IsOpen() const { return descriptor_ >= 0; }

  // Replaces the content in one step. Every content has to be as long as the first, as nothing is cut off.
  void Write(std::string_view content) const;

 private:
  int descriptor_;
};

}  // namespace captoria
