// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/file_stamp.h"

#include <sys/stat.h>

namespace captoria {

FileStamp FileStamp::Of(const std::string& path) {
  FileStamp stamp;
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || S_ISDIR(status.st_mode)) return stamp;
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  stamp.inode_ = status.st_ino;
  stamp.size_ = status.st_size;
  stamp.modified_ = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec;
  return stamp;
}

}  // namespace captoria
