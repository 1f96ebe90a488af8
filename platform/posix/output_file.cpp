// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace captoria {
namespace {

// Smaller pieces are collected into writes of this size; larger ones are written as they come.
constexpr std::size_t kBuffer = std::size_t{256} << 10;

bool WriteAll(int descriptor, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
    offset += static_cast<std::uint64_t>(written);
  }
  return true;
}

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

// The name contains the process id, so that two programs can write the same file at once, and only the first part of
// the file's own name, so that it never gets too long.
std::string BesideOf(const std::string& path) {
  constexpr std::size_t kMostOfName = 200;
  const std::size_t name = path.rfind('/') + 1;
  return path.substr(0, name + kMostOfName) + ".new-" + std::to_string(::getpid());
}

// A rename survives a power cut only once the folder is synced. Not every file system can do that; ignore errors.
void SyncFolder(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace

Result<OutputFile> OutputFile::Create(const std::string& path) {
  // A file without a name vanishes with the process. Not every file system supports such files.
  int descriptor = ::open(FolderOf(path).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
  if (descriptor >= 0) return OutputFile(path, {}, descriptor);
  const std::string beside = BesideOf(path);
  descriptor = ::open(beside.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor >= 0) return OutputFile(path, beside, descriptor);
  return Failure(ErrorKind::Unwritable, path + ": cannot be written: " + std::strerror(errno));
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : path_(std::move(other.path_)),
      beside_(std::exchange(other.beside_, {})),
      descriptor_(std::exchange(other.descriptor_, -1)),
      size_(other.size_),
      buffer_(std::move(other.buffer_)) {}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (!beside_.empty()) ::unlink(beside_.c_str());
}

tl::unexpected<Error> OutputFile::WriteFailure() const {
  return Failure(ErrorKind::Unwritable, path_ + ": cannot be written: " + std::strerror(errno));
}

Result<void> OutputFile::Flush() {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(buffer_.data());
  if (!WriteAll(descriptor_, size_ - buffer_.size(), {bytes, buffer_.size()})) return WriteFailure();
  buffer_.clear();
  return {};
}

Result<void> OutputFile::Append(std::span<const std::uint8_t> bytes) {
  if (buffer_.size() + bytes.size() > kBuffer) {
    if (auto flushed = Flush(); !flushed) return flushed;
  }
  if (bytes.size() > kBuffer) {
    if (!WriteAll(descriptor_, size_, bytes)) return WriteFailure();
  } else {
    buffer_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  }
  size_ += bytes.size();
  return {};
}

Result<void> OutputFile::Append(std::string_view bytes) {
  return Append(std::span{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

Result<void> OutputFile::WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  if (auto flushed = Flush(); !flushed) return flushed;
  if (!WriteAll(descriptor_, offset, bytes)) return WriteFailure();
  return {};
}

Result<void> OutputFile::TakePermissionsOf(const std::string& path) {
  struct stat status {};
  const bool there = ::stat(path.c_str(), &status) == 0;
  if (there ? ::fchmod(descriptor_, status.st_mode & 07777) != 0 : errno != ENOENT) return WriteFailure();
  return {};
}

// Linking cannot replace an existing file, so a file without a name first gets another name and is renamed later.
bool OutputFile::GiveName() {
  const std::string beside = BesideOf(path_);
  const std::string handle = "/proc/self/fd/" + std::to_string(descriptor_);
  const auto link = [&] {
    return ::linkat(AT_FDCWD, handle.c_str(), AT_FDCWD, beside.c_str(), AT_SYMLINK_FOLLOW) == 0;
  };
  // An earlier process with the same id may have been killed right here and left its file.
  const bool named = link() || (errno == EEXIST && ::unlink(beside.c_str()) == 0 && link());
  if (named) beside_ = beside;
  return named;
}

Result<void> OutputFile::Commit(Sync sync) {
  if (auto flushed = Flush(); !flushed) return flushed;
  if (sync == Sync::Yes && ::fsync(descriptor_) != 0) return WriteFailure();
  if (beside_.empty() && !GiveName()) return WriteFailure();
  const int descriptor = std::exchange(descriptor_, -1);
  if (::close(descriptor) != 0 || ::rename(beside_.c_str(), path_.c_str()) != 0) return WriteFailure();
  beside_.clear();
  if (sync == Sync::Yes) SyncFolder(FolderOf(path_));
  return {};
}

}  // namespace captoria
