// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A file that a process keeps locked while it is at work, so that other processes can see that it is, wait for its end
// and ask for it. The lock is advisory, and the system frees it when the process ends, however that happens.
#pragma once

#include <string>
#include <utility>

#include "base/result.h"

namespace captoria {

// The side of the process that is at work.
class LockedFile {
 public:
  // A new, empty file `path`, in place of an old one. It is locked before it gets the name, so nobody ever sees it
  // unlocked. The programs that we start do not inherit the lock. Where the file system has no locks there is still the
  // file. Unwritable if it cannot be made.
  static Result<LockedFile> Begin(const std::string& path);

  LockedFile(LockedFile&& other) noexcept;
  LockedFile& operator=(LockedFile&&) = delete;
  ~LockedFile();  // frees the lock; the file stays

 private:
  explicit LockedFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  // -1: moved from
};

// The side of a process that watches.
class LockWatch {
 public:
  explicit LockWatch(std::string path) : path_(std::move(path)) {}
  LockWatch(const LockWatch&) = delete;
  LockWatch& operator=(const LockWatch&) = delete;
  ~LockWatch();

  // Whether the file has appeared. From the first yes on, this very file is watched, even if another one replaces it.
  bool HasBegun();

  // Whether it is locked; it has begun.
  bool IsLocked() const;

  // Asks the process that holds the lock to end, if the system tells which one it is and it runs the program at the
  // path `program`. It has begun.
  void AskHolderToEnd(const std::string& program) const;

 private:
  std::string path_;
  int descriptor_ = -1;
};

}  // namespace captoria
