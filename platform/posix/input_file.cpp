// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace captoria {

Result<InputFile> InputFile::Open(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) {
    const auto kind = errno == ENOENT || errno == ENOTDIR ? ErrorKind::NotFound : ErrorKind::Unreadable;
    return Failure(kind, path + ": cannot be opened: " + std::strerror(errno));
  }
  InputFile file(path, descriptor, 0);
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) {
    return Failure(ErrorKind::Unreadable, path + ": cannot be read: " + std::strerror(errno));
  }
  if (!S_ISREG(status.st_mode)) return Failure(ErrorKind::Unreadable, path + ": is not an ordinary file");
  file.size_ = static_cast<std::uint64_t>(status.st_size);
  return file;
}

InputFile::InputFile(InputFile&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, -1)), size_(other.size_) {}

InputFile& InputFile::operator=(InputFile&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(descriptor_, other.descriptor_);
  std::swap(size_, other.size_);
  return *this;
}

InputFile::~InputFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<std::size_t> InputFile::ReadAt(std::uint64_t offset, std::span<std::uint8_t> buffer) const {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t got =
        ::pread(descriptor_, buffer.data() + done, buffer.size() - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      return Failure(ErrorKind::Unreadable,
                     path_ + ": cannot be read at byte " + std::to_string(offset + done) + ": " + std::strerror(errno));
    }
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

Result<void> InputFile::ReadExactly(std::uint64_t offset, std::span<std::uint8_t> buffer) const {
  const auto got = ReadAt(offset, buffer);
  if (!got) return tl::unexpected(got.error());
  if (*got == buffer.size()) return {};
  return Failure(ErrorKind::Damaged, path_ + ": ends at byte " + std::to_string(offset + *got) + ", too early");
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code none;
  return std::filesystem::equivalent(a, b, none);
}

}  // namespace captoria
