// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/temp_folder.h"

#include <filesystem>
#include <system_error>

#include "platform/ascii.h"
#include "platform/files.h"
#include "platform/path_text.h"

namespace captoria {

Result<TempFolder> TempFolder::Open(const std::string& program_folder) {
  constexpr int kMost = 1000;
  const std::string first = JoinPath(program_folder, "tmp");
  for (int i = 1; i <= kMost; ++i) {
    const std::string path = i == 1 ? first : first + "-" + std::to_string(i);
    if (auto created = CreateFolder(path); !created) return tl::unexpected(created.error());
    auto lock = FolderLock::TryLock(path);
    if (!lock) return tl::unexpected(lock.error());
    if (*lock && !IsLocked(JoinPath(path, kLogName))) return TempFolder(path, std::move(**lock));
  }
  return Failure(ErrorKind::TooLarge, first + ": too many conversions are at work in " + program_folder);
}

std::string TempFolder::File(std::string_view name) const { return JoinPath(path_, name); }

void TempFolder::Clean(const CleanUp& wanted) const {
  for (const std::string& name : ListFiles(path_, "*")) {
    const bool is_bitmap = EndsIgnoringCase(name, ".bmp");
    std::error_code none;
    if (wanted.everything || (is_bitmap ? wanted.bitmaps : wanted.others)) std::filesystem::remove(File(name), none);
  }
}

}  // namespace captoria
