// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A folder that one run of the program has to itself, such as the one a conversion puts its files into. The lock is
// advisory: it keeps out whoever asks for it, nobody else. It is on the folder itself, so no lock file is left
// anywhere, and the system frees it when the process ends, however that happens.
#pragma once

#include <optional>
#include <string>

#include "base/result.h"

namespace captoria {

class FolderLock {
 public:
  // Does not wait: nothing when another process, or another FolderLock of ours, has the folder. NotFound or Unreadable
  // when it cannot be opened. Where the file system has no locks the folder counts as ours.
  static Result<std::optional<FolderLock>> TryLock(const std::string& folder);

  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&& other) noexcept;
  ~FolderLock();

 private:
  explicit FolderLock(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  // -1: moved from
};

// Whether somebody holds a lock on the file `path`.
bool IsLocked(const std::string& path);

}  // namespace captoria
