// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/ini_path.h"

#include <filesystem>

#include "base/path_text.h"

namespace captoria {
namespace {

bool HasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

// Systems without drives have one current folder, whatever drive the path names.
std::string CurrentFolder([[maybe_unused]] std::string_view path) {
  std::error_code gone;
#ifdef _WIN32
  const std::filesystem::path asked = HasDrive(path) ? path.substr(0, 2) : ".";
  return std::filesystem::absolute(asked, gone).lexically_normal().string();
#else
  return std::filesystem::current_path(gone).string();
#endif
}

}  // namespace

std::string ExtractName(std::string_view path, int mode) {
  std::string_view name = GetFileNameOnly(path);
  if (path.find(PathSeparator(path)) == path.npos && HasDrive(path)) name = path.substr(2);
  const auto point = name.find('.');
  if (mode == 1) return std::string{name.substr(0, point)};
  if (mode == 2) return point == name.npos ? "" : std::string{name.substr(point + 1)};
  return std::string{name};
}

std::string ExtractPath(std::string_view path) {
  const char separator = PathSeparator(path);
  const bool has_folder = path.find(separator) != path.npos;
  std::string folder = has_folder ? std::string{GetPathOnly(path)} : CurrentFolder(path);
  if (folder.ends_with(separator)) folder.pop_back();
  // A root without a drive is named by its separator alone.
  return folder.empty() && separator == '/' ? "/" : folder;
}

}  // namespace captoria
