// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace captoria {

Result<std::optional<FolderLock>> FolderLock::TryLock(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) {
    const auto kind = errno == ENOENT || errno == ENOTDIR ? ErrorKind::NotFound : ErrorKind::Unreadable;
    return Failure(kind, folder + ": the folder cannot be opened: " + std::strerror(errno));
  }
  FolderLock lock(descriptor);
  int failed = 0;
  do failed = ::flock(descriptor, LOCK_EX | LOCK_NB);
  while (failed != 0 && errno == EINTR);
  if (failed != 0 && errno == EWOULDBLOCK) return std::nullopt;
  // Any other error means that this file system has no locks: ENOTSUP, ENOLCK, EINVAL, or EBADF from network file
  // systems that want the file open for writing, which is impossible for a folder. Failing would not help anybody then.
  return std::optional<FolderLock>(std::move(lock));
}

bool IsLocked(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return false;
  const bool locked = ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  ::close(descriptor);
  return locked;
}

FolderLock::FolderLock(FolderLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

// Frees the old lock now, not at the end of `other`, which may live longer.
FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
  FolderLock taken(std::move(other));
  std::swap(descriptor_, taken.descriptor_);
  return *this;
}

FolderLock::~FolderLock() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace captoria
