// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/rewritten_file.h"

#include <fcntl.h>
#include <unistd.h>

namespace captoria {

RewrittenFile::RewrittenFile(const std::string& path)
    : descriptor_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666)) {}

RewrittenFile::~RewrittenFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

void RewrittenFile::Write(std::string_view content) const {
  [[maybe_unused]] const ssize_t written = ::pwrite(descriptor_, content.data(), content.size(), 0);
}

}  // namespace captoria
