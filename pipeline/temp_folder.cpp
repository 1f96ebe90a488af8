// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/temp_folder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "base/ascii.h"
#include "base/path_text.h"
#include "pipeline/tool_copies.h"
#include "platform/files.h"
#include "platform/private_folder.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;

constexpr int kMost = 1000;                            // conversions at once
constexpr const char* kOutputName = "divxmux.output";  // contains the name of the film
constexpr const char* kMarkerName = ".captoria-tmp";   // in every folder that may be emptied
constexpr const char* kMarkerText = "Captoria deletes the other files in this folder after each conversion.\n";

std::string FolderName(const std::string& program_folder, int number) {
  return JoinPath(program_folder, "tmp") + (number == 1 ? "" : "-" + std::to_string(number));
}

bool IsNumbered(std::string_view name, std::string_view begin, std::size_t digits, std::string_view end) {
  if (name.size() < begin.size() + digits + end.size() || !name.starts_with(begin) || !name.ends_with(end))
    return false;
  return std::ranges::all_of(name.substr(begin.size(), name.size() - begin.size() - end.size()), IsDigit);
}

// Whether a conversion makes a file of this name. One that was killed may have left a marker under its first name.
bool IsOurs(std::string_view name) {
  constexpr std::array kScriptFiles{"divxmux.bat", "divxmux.log", "divxmux.progress", kOutputName};
  return IsNumbered(name, "bmp", 5, ".bmp") || IsNumbered(name, "linkerfile", 1, ".txt") ||
         IsNumbered(name, "aXsub", 1, ".xsub") || std::ranges::find(kScriptFiles, name) != kScriptFiles.end() ||
         name == FileNameOf(Tool::DivXMux) || name == FileNameOf(Tool::BmpToXSub) || name.starts_with(kMarkerName);
}

// Whether all of a folder without a marker was made by conversions. Older releases set no marker.
bool HasOnlyOurs(const std::string& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code gone;
    if (!IsOurs(entry->path().filename().string()) || !fs::is_regular_file(entry->symlink_status(gone))) return false;
  }
  return !error;
}

bool IsMarked(const std::string& folder) {
  std::error_code none;
  return fs::is_regular_file(fs::symlink_status(JoinPath(folder, kMarkerName), none));
}

bool IsMissing(const std::string& path) {
  std::error_code none;
  return fs::symlink_status(path, none).type() == fs::file_type::not_found;
}

bool MayBeEmptied(const std::string& folder) {
  return IsPrivateFolder(folder) && (IsMarked(folder) || HasOnlyOurs(folder));
}

Result<void> Mark(const std::string& folder) {
  if (IsMarked(folder)) return {};
  return WriteWholeFile(JoinPath(folder, kMarkerName), kMarkerText, Sync::No);
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

std::string TempFolder::FirstOf(const std::string& program_folder) {
  std::string path;
  for (int i = 1; i <= kMost; ++i) {
    path = FolderName(program_folder, i);
    if (IsMissing(path) || MayBeEmptied(path)) break;
  }
  return path;
}

Result<TempFolder> TempFolder::Open(const std::string& program_folder) {
  if (auto created = CreateFolder(program_folder); !created) return tl::unexpected(created.error());
  for (int i = 1; i <= kMost; ++i) {
    const std::string path = FolderName(program_folder, i);
    const auto created = CreatePrivateFolder(path);
    if (!created) return tl::unexpected(created.error());
    if (!*created && !MayBeEmptied(path)) continue;
    auto lock = FolderLock::TryLock(path);
    if (!lock) return tl::unexpected(lock.error());
    if (!*lock || IsLocked(JoinPath(path, kLogName))) continue;
    if (auto marked = Mark(path); !marked) return tl::unexpected(marked.error());
    std::error_code none;
    fs::remove(JoinPath(path, kOutputName), none);  // left by a conversion that was killed
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

// Lists first: removing files while reading a folder can hide others on some file systems. A link is removed, whatever
// it leads to.
void TempFolder::Clean(const CleanUp& wanted) const {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(path_, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code none;
    if (!fs::is_directory(entry->symlink_status(none))) files.push_back(entry->path());
  }
  for (const fs::path& file : files) {
    if (file.filename() == kMarkerName) continue;
    const bool is_bitmap = EndsIgnoringCase(file.native(), ".bmp");
    std::error_code none;
    if (wanted.everything || (is_bitmap ? wanted.bitmaps : wanted.others)) fs::remove(file, none);
  }
}

}  // namespace captoria
