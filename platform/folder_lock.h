// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A lock on a folder that one run of the program uses alone, such as the temporary folder of a conversion. The lock is
// advisory: it only stops others who ask for it. It is on the folder itself, so no lock file is left over, and the
// system frees it when the process ends, however that happens.
#pragma once

#include <optional>
#include <string>

#include "base/result.h"

namespace captoria {

class FolderLock {
 public:
  // Does not wait: no value if another process, or another FolderLock in this one, holds the lock. NotFound or
  // Unreadable if the folder cannot be opened. On a file system without locks it always succeeds.
  static Result<std::optional<FolderLock>> TryLock(const std::string& folder);

  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&& other) noexcept;
  ~FolderLock();

 private:
  explicit FolderLock(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  // -1: moved from
};

// Whether a process holds a lock on the file or folder `path`.
bool IsLocked(const std::string& path);

}  // namespace captoria
