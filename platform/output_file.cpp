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
#include <vector>

namespace captoria {
namespace {

// Small pieces are gathered to writes of this size; larger ones go out as they are.
constexpr std::size_t kBuffer = std::size_t{256} << 10;

// What is read and written at once where the system cannot copy by itself.
constexpr std::size_t kCopyBlock = std::size_t{1} << 20;

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

}  // namespace

Result<OutputFile> OutputFile::Create(const std::string& path) {
  // A file without a name vanishes with the process. Not every file system has them.
  int descriptor = ::open(FolderOf(path).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
  if (descriptor >= 0) return OutputFile(path, {}, descriptor);
  const std::string beside = path + ".new-" + std::to_string(::getpid());
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

Result<void> OutputFile::AppendFrom(const InputFile& source, std::uint64_t offset, std::uint64_t size) {
  if (auto flushed = Flush(); !flushed) return flushed;
  bool inside_system = true;
  std::vector<std::uint8_t> block;
  while (size > 0) {
    if (inside_system) {
      auto from = static_cast<off_t>(offset), to = static_cast<off_t>(size_);
      const ssize_t copied = ::copy_file_range(source.Descriptor(), &from, descriptor_, &to, size, 0);
      if (copied < 0 && errno == EINTR) continue;
      if (copied < 0 && (errno == ENOSPC || errno == EFBIG || errno == EDQUOT)) return WriteFailure();
      if (copied > 0) {
        offset += static_cast<std::uint64_t>(copied);
        size_ += static_cast<std::uint64_t>(copied);
        size -= static_cast<std::uint64_t>(copied);
        continue;
      }
      inside_system = false;  // another file system, an old kernel, or the end of the source: reading will tell
    }
    block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size, kCopyBlock)));
    if (auto read = source.ReadExactly(offset, block); !read) return read;
    if (!WriteAll(descriptor_, size_, block)) return WriteFailure();
    offset += block.size();
    size_ += block.size();
    size -= block.size();
  }
  return {};
}

Result<void> OutputFile::Commit() {
  if (auto flushed = Flush(); !flushed) return flushed;
  if (beside_.empty()) {
    // A name can be given to a nameless file, but not one that is taken; so the last step is a rename either way.
    const std::string beside = path_ + ".new-" + std::to_string(::getpid());
    const std::string handle = "/proc/self/fd/" + std::to_string(descriptor_);
    ::unlink(beside.c_str());
    if (::linkat(AT_FDCWD, handle.c_str(), AT_FDCWD, beside.c_str(), AT_SYMLINK_FOLLOW) != 0) return WriteFailure();
    beside_ = beside;
  }
  const int descriptor = std::exchange(descriptor_, -1);
  if (::close(descriptor) != 0 || ::rename(beside_.c_str(), path_.c_str()) != 0) return WriteFailure();
  beside_.clear();
  return {};
}

}  // namespace captoria
