// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/program_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

std::optional<std::string> AbsoluteFolder(const std::optional<std::string>& value) {
  if (!value || !value->starts_with('/')) return std::nullopt;
  return value;
}

// Relative to lib/captoria, the folder of installed programs.
std::string InstalledFolder(const std::string& executable_folder, const std::string& name) {
  return std::filesystem::path(JoinPath(executable_folder, "../../share/captoria/" + name)).lexically_normal().string();
}

// An unpacked copy may be near a share/captoria too: the user's own data folder, which has no languages.
bool IsInstalled(const std::string& executable_folder) {
  return FolderExists(InstalledFolder(executable_folder, "languages"));
}

std::string HomeFolder(const Environment& environment) {
  if (auto home = AbsoluteFolder(environment("HOME"))) return *home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

}  // namespace

ProgramFolders FindProgramFolders(const std::string& chosen, const std::string& executable_folder,
                                  const Environment& environment) {
  ProgramFolders folders{.executable = executable_folder, .data = {}};
  if (!chosen.empty()) {
    // Scripts name files in it and run in another folder.
    folders.data = AbsolutePath(chosen);
    if (folders.data.size() > 1 && folders.data.ends_with('/')) folders.data.pop_back();
    return folders;
  }
  if (!IsInstalled(executable_folder) && ::access(executable_folder.c_str(), W_OK) == 0) {
    folders.data = executable_folder;
  } else if (const auto xdg = AbsoluteFolder(environment("XDG_DATA_HOME"))) {
    folders.data = JoinPath(*xdg, "captoria");
  } else {
    folders.data = JoinPath(HomeFolder(environment), ".local/share/captoria");
  }
  return folders;
}

std::string ShippedFolder(const ProgramFolders& folders, const std::string& name) {
  return IsInstalled(folders.executable) ? InstalledFolder(folders.executable, name)
                                         : JoinPath(folders.executable, name);
}

std::string ExecutableFolder() {
  std::error_code error;
  const auto path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "." : path.parent_path().string();
}

Environment ProcessEnvironment() {
  return [](const std::string& name) -> std::optional<std::string> {
    const char* value = std::getenv(name.c_str());
    if (value == nullptr) return std::nullopt;
    return value;
  };
}

}  // namespace captoria
