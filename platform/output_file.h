// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A file that is being written. It gets its name only once it is complete. If the process is killed before that,
// nothing is left over, provided the file system supports files without a name.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

// Whether a file has to survive a power cut. A file that can be made again need not.
enum class Sync { No, Yes };

class OutputFile {
 public:
  // Unwritable if the folder is missing or cannot be written to.
  static Result<OutputFile> Create(const std::string& path);
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&&) = delete;

  // Deletes the file unless it was committed.
  ~OutputFile();

  // Bytes appended so far.
  std::uint64_t Size() const { return size_; }

  Result<void> Append(std::span<const std::uint8_t> bytes);
  Result<void> Append(std::string_view bytes);

  // Overwrites bytes that were appended before.
  Result<void> WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes);

  // Takes over the permissions of the file `path`. If it is missing, the new file keeps the usual ones.
  Result<void> TakePermissionsOf(const std::string& path);

  // Gives the file its name and replaces an existing file of that name.
  Result<void> Commit(Sync sync = Sync::No);

 private:
  OutputFile(std::string path, std::string beside, int descriptor)
      : path_(std::move(path)), beside_(std::move(beside)), descriptor_(descriptor) {}

  tl::unexpected<Error> WriteFailure() const;
  Result<void> Flush();
  bool GiveName();

  std::string path_;
  std::string beside_;  // its name until the commit; empty if it has none
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
  std::string buffer_;  // bytes that are appended but not yet written, the last of `size_`
};

}  // namespace captoria
