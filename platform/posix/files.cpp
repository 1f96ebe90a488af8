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

#include "base/ascii.h"
#include "platform/input_file.h"
#include "platform/large_pages.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;

std::string Reason(int code) { return std::strerror(code); }

// Closes the descriptor at the end of its scope. Close() reports errors that appear only then, such as a full network
// disk.
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

// The file to replace so that a symbolic link at `path` stays.
std::string LinkTarget(const std::string& path) {
  std::error_code none;
  if (!fs::is_symlink(path, none)) return path;
  const fs::path target = fs::weakly_canonical(path, none);
  return none ? path : target.string();
}

bool Matches(std::string_view name, std::string_view pattern) {
  // Only the last "*" has to be tried again, so even a hostile pattern takes at most name x pattern steps.
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

std::string AbsolutePath(const std::string& path) {
  std::error_code gone;
  const auto absolute = std::filesystem::absolute(path, gone);
  return gone ? path : absolute.lexically_normal().string();
}

std::vector<std::string> ListFiles(const std::string& folder, std::string_view pattern) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error), end;
       !error && entry != end; entry.increment(error)) {
    std::error_code gone;  // the file was deleted meanwhile; skip it
    if (entry->is_directory(gone) || gone) continue;
    std::string name = entry->path().filename().string();
    if (Matches(name, pattern)) names.push_back(std::move(name));
  }
  std::ranges::sort(names);
  return names;
}

Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t limit) {
  // O_NONBLOCK keeps the program from waiting for the writer of a pipe; for ordinary files it changes nothing. Without
  // a writer a pipe would then read as an empty file, so pipes are refused below.
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.Valid()) {
    const auto kind = errno == ENOENT || errno == ENOTDIR ? ErrorKind::NotFound : ErrorKind::Unreadable;
    return Failure(kind, path + ": cannot be opened: " + Reason(errno));
  }
  struct stat status {};
  if (::fstat(file.Get(), &status) != 0) return Failure(ErrorKind::Unreadable, path + ": " + Reason(errno));
  if (S_ISDIR(status.st_mode)) return Failure(ErrorKind::Unreadable, path + ": is a folder, not a file");
  if (S_ISFIFO(status.st_mode)) return Failure(ErrorKind::Unreadable, path + ": is a pipe, not a file");

  // The size is only a hint: the file may grow or shrink while it is read, and some files report 0.
  const auto announced = static_cast<std::uint64_t>(std::max<off_t>(status.st_size, 0));
  const auto too_large = [&] {
    return Failure(ErrorKind::TooLarge, path + ": is larger than " + std::to_string(limit) + " bytes");
  };
  if (announced > limit) return too_large();
  std::string content;
  content.reserve(announced + 1);
  PreferLargePages(content.data(), announced);
  std::size_t used = 0;
  while (true) {
    if (used > limit) return too_large();
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
  auto file = OutputFile::Create(target);
  if (!file) return tl::unexpected(file.error());
  if (auto written = file->Append(content); !written) return written;
  if (auto taken = file->TakePermissionsOf(target); !taken) return taken;
  return file->Commit(sync);
}

Result<void> CopyWholeFile(const std::string& from, const std::string& to) {
  if (IsSameFile(from, to)) {
    return Failure(ErrorKind::Unwritable, to + ": cannot be written: it is the file to copy");
  }
  const auto source = InputFile::Open(from);
  if (!source) return tl::unexpected(source.error());
  auto file = OutputFile::Create(to);
  if (!file) return tl::unexpected(file.error());
  std::vector<std::uint8_t> block(std::size_t{1} << 20);
  for (;;) {
    const auto got = source->ReadAt(file->Size(), block);
    if (!got) return tl::unexpected(got.error());
    if (auto written = file->Append(std::span{block}.first(*got)); !written) return written;
    if (*got < block.size()) break;
  }
  if (auto taken = file->TakePermissionsOf(from); !taken) return taken;
  return file->Commit();
}

Result<void> CreateFolder(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error && !FolderExists(path)) {
    return Failure(ErrorKind::Unwritable, path + ": the folder cannot be created: " + error.message());
  }
  return {};
}

Result<void> RemoveFile(const std::string& path) {
  if (::unlink(path.c_str()) == 0 || errno == ENOENT) return {};
  return Failure(ErrorKind::Unwritable, path + ": cannot be removed: " + Reason(errno));
}

Result<void> RenameWithoutReplacing(const std::string& from, const std::string& to) {
  // Unlike a rename, a hard link fails if the new name is taken. Rename on file systems without hard links.
  if (::link(from.c_str(), to.c_str()) == 0) {
    if (::unlink(from.c_str()) == 0) return {};
  } else if (errno != EEXIST && !fs::exists(to) && ::rename(from.c_str(), to.c_str()) == 0) {
    return {};
  }
  return Failure(ErrorKind::Unwritable, from + ": cannot be renamed to " + to + ": " + Reason(errno));
}

}  // namespace captoria
