// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/temp_folder.h"

#include <algorithm>
#include <chrono>
#include <climits>
#include <filesystem>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr int kMost = 1000;                            // conversions at once
constexpr const char* kOutputName = "divxmux.output";  // contains the name of the film

std::string FolderName(const std::string& program_folder, int number) {
  return JoinPath(program_folder, "tmp") + (number == 1 ? "" : "-" + std::to_string(number));
}

bool IsAtWork(const std::string& folder) {
  return IsLocked(folder) || IsLocked(JoinPath(folder, TempFolder::kLogName));
}

// Locks the folder for a moment. Does not wait long for another process: two films with one name are better than a
// conversion that never begins.
std::optional<FolderLock> LockBriefly(const std::string& folder) {
  constexpr int kPatience = 200;  // times 5 ms
  for (int i = 0; i < kPatience; ++i) {
    auto lock = FolderLock::TryLock(folder);
    if (!lock) break;
    if (*lock) return std::move(*lock);
    std::this_thread::sleep_for(std::chrono::milliseconds{5});
  }
  return std::nullopt;
}

}  // namespace

std::string TempFolder::FirstOf(const std::string& program_folder) { return FolderName(program_folder, 1); }

Result<TempFolder> TempFolder::Open(const std::string& program_folder) {
  for (int i = 1; i <= kMost; ++i) {
    const std::string path = FolderName(program_folder, i);
    if (auto created = CreateFolder(path); !created) return tl::unexpected(created.error());
    auto lock = FolderLock::TryLock(path);
    if (!lock) return tl::unexpected(lock.error());
    if (!*lock || IsLocked(JoinPath(path, kLogName))) continue;
    std::error_code none;
    std::filesystem::remove(JoinPath(path, kOutputName), none);  // left by a conversion that was killed
    return TempFolder(program_folder, path, std::move(**lock));
  }
  return Failure(ErrorKind::TooLarge,
                 FolderName(program_folder, 1) + ": too many conversions are at work in " + program_folder);
}

std::vector<std::string> TempFolder::OutputsOfOthers() const {
  std::vector<std::string> outputs;
  for (int i = 1; i <= kMost; ++i) {
    const std::string folder = FolderName(program_folder_, i);
    if (folder == path_ || !FolderExists(folder) || !IsAtWork(folder)) continue;
    if (auto output = ReadWholeFile(JoinPath(folder, kOutputName), PATH_MAX)) outputs.push_back(std::move(*output));
  }
  return outputs;
}

Result<std::string> TempFolder::ClaimOutput(
    const std::function<std::string(const NameTaken& in_making)>& choose) const {
  const auto lock = LockBriefly(program_folder_);
  const std::vector<std::string> others = OutputsOfOthers();
  std::string output = choose(
      [&others](const std::string& path) { return std::ranges::find(others, AbsolutePath(path)) != others.end(); });
  auto written = WriteWholeFile(File(kOutputName), AbsolutePath(output), Sync::No);
  if (!written) return tl::unexpected(written.error());
  return output;
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
