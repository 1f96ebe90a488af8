// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/path_text.h"

namespace captoria {

char PathSeparator(std::string_view path) {
#ifdef _WIN32
  constexpr bool kSystemUsesSlash = false;
#else
  constexpr bool kSystemUsesSlash = true;
#endif
  return kSystemUsesSlash && path.find('/') != path.npos ? '/' : '\\';
}

std::string_view GetFileNameOnly(std::string_view path) {
  const auto last = path.rfind(PathSeparator(path));
  return last == path.npos ? path : path.substr(last + 1);
}

std::string_view GetPathOnly(std::string_view path) { return path.substr(0, path.rfind(PathSeparator(path))); }

std::string FolderOf(std::string_view path) {
  if (GetFileNameOnly(path) == path) return "./";
  return std::string{GetPathOnly(path)} + PathSeparator(path);
}

std::string_view RemoveExt(std::string_view name) { return name.substr(0, name.rfind('.')); }

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path{folder};
  const char separator = PathSeparator(folder);
  if (!path.ends_with(separator)) path += separator;
  path += name;
  return path;
}

}  // namespace captoria
