// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The state of a file at one moment. Two stamps differ if the file was changed or replaced in between.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace captoria {

class FileStamp {
 public:
  // The file may be missing; a folder counts as missing.
  static FileStamp Of(const std::string& path);

  bool Exists() const { return inode_.has_value(); }
  bool operator==(const FileStamp&) const = default;

 private:
  std::optional<std::uint64_t> inode_;
  std::int64_t size_ = 0;      // bytes
  std::int64_t modified_ = 0;  // nanoseconds
};

}  // namespace captoria
