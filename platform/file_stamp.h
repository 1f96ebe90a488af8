// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A file as it was when looked at, to find out later whether another has taken its place.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace captoria {

class FileStamp {
 public:
  // Of a file that is not there as well, or of a folder: the stamp then says so.
  static FileStamp Of(const std::string& path);

  bool Exists() const { return inode_.has_value(); }
  bool operator==(const FileStamp&) const = default;

 private:
  std::optional<std::uint64_t> inode_;
  std::int64_t size_ = 0;      // bytes
  std::int64_t modified_ = 0;  // nanoseconds
};

}  // namespace captoria
