// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Files and folders as the program uses them. Paths are bytes and never checked for an encoding; errors name the path
// and the system's own reason.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/output_file.h"

namespace captoria {

// Whether a file that is not a folder is there.
bool FileExists(const std::string& path);

bool FolderExists(const std::string& path);

// `path` from the root on, without "." and ".."; as it is where the current folder is gone.
std::string AbsolutePath(const std::string& path);

// The names (without folder) of the files of `folder` that match `pattern`, where "*" stands for any text and "?" for
// one byte, compared without regard to ASCII case; folders are left out. Sorted by their bytes, so that every machine
// lists alike. A folder that is not there has no files.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view pattern);

// The whole file. More than `limit` bytes is TooLarge, found out before they are held in memory.
Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t limit = std::uint64_t{1} << 30);

// Puts `content` under `path` so that a reader sees the old file or the new one, whole, whatever fails and whenever the
// power goes: it is written beside, synced when asked, and renamed. On failure the old file is untouched and nothing
// else is left. A symbolic link stays one (its target is replaced), and so do an existing file's permissions.
Result<void> WriteWholeFile(const std::string& path, std::string_view content, Sync sync = Sync::Yes);

// Copies content and permissions, under the same promise as WriteWholeFile. Source and target must be different files.
Result<void> CopyWholeFile(const std::string& from, const std::string& to);

// Creates the folder and those above it; no error when it is there.
Result<void> CreateFolder(const std::string& path);

// No error if there is no such file. A folder is not removed.
Result<void> RemoveFile(const std::string& path);

// Moves within one file system, without replacing a file of the new name.
Result<void> RenameWithoutReplacing(const std::string& from, const std::string& to);

}  // namespace captoria
