// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A file of any size that is read piece by piece at any offset.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/result.h"

namespace captoria {

class InputFile {
 public:
  // NotFound, or Unreadable for a folder, a pipe or a file without read permission.
  static Result<InputFile> Open(const std::string& path);
  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&& other) noexcept;
  ~InputFile();

  const std::string& Path() const { return path_; }

  // In bytes, when the file was opened.
  std::uint64_t Size() const { return size_; }

  // Reads up to `buffer.size()` bytes from `offset`; fewer only at the end of the file. Several threads may read.
  Result<std::size_t> ReadAt(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

  // Reads exactly `buffer.size()` bytes; Damaged if the file ends before that.
  Result<void> ReadExactly(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

 private:
  InputFile(std::string path, int descriptor, std::uint64_t size)
      : path_(std::move(path)), descriptor_(descriptor), size_(size) {}

  std::string path_;
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};

// Whether both paths lead to the same file, for example through links.
bool IsSameFile(const std::string& a, const std::string& b);

}  // namespace captoria
