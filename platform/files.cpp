// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "platform/ascii.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;

std::string Reason(int code) { return std::strerror(code); }

// A descriptor that is closed with its scope. Close() reports what only closing finds out, such as a full network disk.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool Valid() const { return fd_ >= 0; }
  int Get() const { return fd_; }
  bool Close() {
    const int fd = std::exchange(fd_, -1);
    return fd < 0 || ::close(fd) == 0;
  }

 private:
  int fd_;
};

// A file beside its final name that is gone again unless it was renamed.
class FileBeside {
 public:
  // Named after the process too, so that two programs writing the same file never write into each other's.
  explicit FileBeside(const std::string& target)
      : path_(target + ".new-" + std::to_string(::getpid())),
        descriptor_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {}
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside() {
    if (!renamed_ && created_) ::unlink(path_.c_str());
  }

  bool Valid() const { return descriptor_.Valid(); }

  bool Write(std::string_view content) {
    while (!content.empty()) {
      const ssize_t written = ::write(descriptor_.Get(), content.data(), content.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return false;
      content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }

  bool TakePermissionsOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return errno == ENOENT;
    return ::fchmod(descriptor_.Get(), status.st_mode & 07777) == 0;
  }

  bool RenameTo(const std::string& target, Sync sync) {
    if (sync == Sync::Yes && ::fsync(descriptor_.Get()) != 0) return false;
    if (!descriptor_.Close()) return false;
    renamed_ = ::rename(path_.c_str(), target.c_str()) == 0;
    if (renamed_ && sync == Sync::Yes) {
      // The name itself is only safe once its folder is on disk. A file system that cannot sync folders is no failure.
      Descriptor folder(::open(fs::path(target).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
      if (folder.Valid()) ::fsync(folder.Get());
    }
    return renamed_;
  }

 private:
  std::string path_;
  Descriptor descriptor_;
  bool created_ = descriptor_.Valid();
  bool renamed_ = false;
};

// Where a write to `path` has to go so that a symbolic link is kept.
std::string LinkTarget(const std::string& path) {
  std::error_code none;
  if (!fs::is_symlink(path, none)) return path;
  const fs::path target = fs::weakly_canonical(path, none);
  return none ? path : target.string();
}

bool Matches(std::string_view name, std::string_view pattern) {
  // Only the last "*" ever has to be tried again, so a hostile pattern costs at most name x pattern steps.
  std::size_t n = 0, p = 0, star = pattern.npos, retry = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      retry = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || LowerAscii(pattern[p]) == LowerAscii(name[n]))) {
      ++n, ++p;
    } else if (star != pattern.npos) {
      p = star + 1;
      n = ++retry;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == pattern.npos;
}

}  // namespace

bool FileExists(const std::string& path) {
  std::error_code none;
  const auto status = fs::status(path, none);
  return fs::exists(status) && !fs::is_directory(status);
}

bool FolderExists(const std::string& path) {
  std::error_code none;
  return fs::is_directory(path, none);
}

std::vector<std::string> ListFiles(const std::string& folder, std::string_view pattern) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error), end;
       !error && entry != end; entry.increment(error)) {
    std::error_code gone;  // a file deleted meanwhile is simply not listed
    if (entry->is_directory(gone) || gone) continue;
    std::string name = entry->path().filename().string();
    if (Matches(name, pattern)) names.push_back(std::move(name));
  }
  std::ranges::sort(names);
  return names;
}

Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t limit) {
  // Not blocking keeps a pipe that nobody writes to from holding the program up; ordinary files do not notice.
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.Valid()) {
    const auto kind = errno == ENOENT || errno == ENOTDIR ? ErrorKind::NotFound : ErrorKind::Unreadable;
    return Failure(kind, path + ": cannot be opened: " + Reason(errno));
  }
  struct stat status {};
  if (::fstat(file.Get(), &status) != 0) return Failure(ErrorKind::Unreadable, path + ": " + Reason(errno));
  if (S_ISDIR(status.st_mode)) return Failure(ErrorKind::Unreadable, path + ": is a folder, not a file");

  // The size is a proposal only: the file may grow or shrink while it is read, and some files report 0.
  const auto announced = static_cast<std::uint64_t>(std::max<off_t>(status.st_size, 0));
  std::string content;
  std::size_t used = 0;
  while (true) {
    if (used > limit || announced > limit) {
      return Failure(ErrorKind::TooLarge, path + ": is larger than " + std::to_string(limit) + " bytes");
    }
    if (used == content.size()) content.resize(used == 0 ? announced + 1 : used + used / 2 + 4096);
    const ssize_t got = ::read(file.Get(), content.data() + used, content.size() - used);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Failure(ErrorKind::Unreadable, path + ": cannot be read: " + Reason(errno));
    if (got == 0) break;
    used += static_cast<std::size_t>(got);
  }
  content.resize(used);
  return content;
}

Result<void> WriteWholeFile(const std::string& path, std::string_view content, Sync sync) {
  const std::string target = LinkTarget(path);
  FileBeside beside(target);
  if (!beside.Valid() || !beside.Write(content) || !beside.TakePermissionsOf(target) ||
      !beside.RenameTo(target, sync)) {
    return Failure(ErrorKind::Unwritable, path + ": cannot be written: " + Reason(errno));
  }
  return {};
}

Result<void> CopyWholeFile(const std::string& from, const std::string& to) {
  std::error_code none;
  if (fs::equivalent(from, to, none)) {
    return Failure(ErrorKind::Unwritable, to + ": cannot be written: it is the file to copy");
  }
  Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
  if (!source.Valid()) {
    const auto kind = errno == ENOENT ? ErrorKind::NotFound : ErrorKind::Unreadable;
    return Failure(kind, from + ": cannot be opened: " + Reason(errno));
  }
  FileBeside beside(to);
  std::array<char, 1 << 16> buffer;
  while (beside.Valid()) {
    const ssize_t got = ::read(source.Get(), buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Failure(ErrorKind::Unreadable, from + ": cannot be read: " + Reason(errno));
    if (got == 0) break;
    if (!beside.Write({buffer.data(), static_cast<std::size_t>(got)})) {
      return Failure(ErrorKind::Unwritable, to + ": cannot be written: " + Reason(errno));
    }
  }
  if (!beside.Valid() || !beside.TakePermissionsOf(from) || !beside.RenameTo(to, Sync::No)) {
    return Failure(ErrorKind::Unwritable, to + ": cannot be written: " + Reason(errno));
  }
  return {};
}

Result<void> CreateFolder(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error && !FolderExists(path)) {
    return Failure(ErrorKind::Unwritable, path + ": the folder cannot be created: " + error.message());
  }
  return {};
}

Result<void> RenameWithoutReplacing(const std::string& from, const std::string& to) {
  // A hard link fails where the new name is taken, which a rename would not; file systems without links fall back.
  if (::link(from.c_str(), to.c_str()) == 0) {
    if (::unlink(from.c_str()) == 0) return {};
  } else if (errno != EEXIST && !fs::exists(to) && ::rename(from.c_str(), to.c_str()) == 0) {
    return {};
  }
  return Failure(ErrorKind::Unwritable, from + ": cannot be renamed to " + to + ": " + Reason(errno));
}

}  // namespace captoria
