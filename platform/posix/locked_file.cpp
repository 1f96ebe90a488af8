// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/locked_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <utility>

#include "platform/files.h"
#include "platform/input_file.h"

namespace captoria {

Result<LockedFile> LockedFile::Begin(const std::string& path) {
  const std::string beside = path + ".new-" + std::to_string(::getpid());
  LockedFile file(::open(beside.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666));
  if (file.descriptor_ >= 0) ::flock(file.descriptor_, LOCK_EX | LOCK_NB);
  if (file.descriptor_ >= 0 && std::rename(beside.c_str(), path.c_str()) == 0) return file;
  const std::string reason = std::strerror(errno);
  ::unlink(beside.c_str());
  return Failure(ErrorKind::Unwritable, path + ": cannot be written: " + reason);
}

LockedFile::LockedFile(LockedFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

LockedFile::~LockedFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

LockWatch::~LockWatch() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool LockWatch::HasBegun() {
  if (descriptor_ < 0) descriptor_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  return descriptor_ >= 0;
}

bool LockWatch::IsLocked() const {
  if (::flock(descriptor_, LOCK_SH | LOCK_NB) != 0) return errno == EWOULDBLOCK;
  ::flock(descriptor_, LOCK_UN);
  return false;
}

// Lines of the system's table of locks read "1: FLOCK ADVISORY WRITE 4711 08:01:5505043 0 EOF", with process, device
// and file. On some file systems the device is not the one that fstat reports, so only the file's number is compared;
// the program is compared to make up for that.
void LockWatch::AskHolderToEnd(const std::string& program) const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) return;
  const std::string file = ":" + std::to_string(status.st_ino);
  std::istringstream locks(ReadWholeFile("/proc/locks").value_or(""));
  for (std::string line; std::getline(locks, line);) {
    std::string number, kind, binding, access, place;
    pid_t holder = 0;
    std::istringstream(line) >> number >> kind >> binding >> access >> holder >> place;
    if (kind != "FLOCK" || !place.ends_with(file) || holder <= 0) continue;
    if (IsSameFile("/proc/" + std::to_string(holder) + "/exe", program)) ::kill(holder, SIGTERM);
  }
}

}  // namespace captoria
