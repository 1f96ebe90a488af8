// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A file of any size read at places, without holding it in memory.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/result.h"

namespace captoria {

class InputFile {
 public:
  // NotFound, or Unreadable for a folder, a pipe or what may not be read.
  static Result<InputFile> Open(const std::string& path);
  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&& other) noexcept;
  ~InputFile();

  const std::string& Path() const { return path_; }

  // At the time of opening.
  std::uint64_t Size() const { return size_; }

  // Reads up to `buffer.size()` bytes from `offset`; fewer only at the end of the file. Several threads may read.
  Result<std::size_t> ReadAt(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

  // The same for exactly `buffer.size()` bytes; Damaged when the file ends before.
  Result<void> ReadExactly(std::uint64_t offset, std::span<std::uint8_t> buffer) const;

 private:
  InputFile(std::string path, int descriptor, std::uint64_t size)
      : path_(std::move(path)), descriptor_(descriptor), size_(size) {}

  std::string path_;
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};

// Whether both paths lead to one file, by whatever names.
bool IsSameFile(const std::string& a, const std::string& b);

}  // namespace captoria
