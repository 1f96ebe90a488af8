// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/private_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace captoria {

Result<bool> CreatePrivateFolder(const std::string& path) {
  if (::mkdir(path.c_str(), 0755) == 0) return true;
  if (errno == EEXIST) return false;
  return Failure(ErrorKind::Unwritable, path + ": the folder cannot be created: " + std::strerror(errno));
}

bool IsPrivateFolder(const std::string& path) {
  struct stat folder {
  }, parent{};
  if (::lstat(path.c_str(), &folder) != 0 || !S_ISDIR(folder.st_mode)) return false;
  if (::stat((path + "/..").c_str(), &parent) != 0) return false;
  if (folder.st_uid != ::geteuid() && folder.st_uid != parent.st_uid) return false;
  mode_t can_replace = (parent.st_mode & S_ISVTX) != 0 ? 0 : parent.st_mode;
  if (folder.st_gid != parent.st_gid) can_replace &= ~static_cast<mode_t>(S_IWGRP);
  return (folder.st_mode & (S_IWGRP | S_IWOTH) & ~can_replace) == 0;
}

}  // namespace captoria
