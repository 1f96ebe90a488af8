// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A file being made. Nobody sees it under its final name before it is whole, and where the file system can, a process
// that is killed leaves nothing behind at all.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

// Whether a file has to survive the power going. What can be made again has not.
enum class Sync { No, Yes };

class OutputFile {
 public:
  // Unwritable when the folder is not there or may not be written.
  static Result<OutputFile> Create(const std::string& path);
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&&) = delete;

  // A file that was not committed is gone.
  ~OutputFile();

  // Bytes appended so far.
  std::uint64_t Size() const { return size_; }

  Result<void> Append(std::span<const std::uint8_t> bytes);
  Result<void> Append(std::string_view bytes);

  // Writes over what has been appended before.
  Result<void> WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes);

  // The permissions of the file `path`, if there is one; else the file gets those that new files get.
  Result<void> TakePermissionsOf(const std::string& path);

  // Gives the file its name, in place of a file that has it.
  Result<void> Commit(Sync sync = Sync::No);

 private:
  OutputFile(std::string path, std::string beside, int descriptor)
      : path_(std::move(path)), beside_(std::move(beside)), descriptor_(descriptor) {}

  tl::unexpected<Error> WriteFailure() const;
  Result<void> Flush();
  bool GiveName();

  std::string path_;
  std::string beside_;  // the name until the commit; empty while there is none
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
  std::string buffer_;  // appended and not yet written, the last bytes of `size_`
};

}  // namespace captoria
