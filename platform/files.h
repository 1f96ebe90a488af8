// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Files and folders. Paths are bytes in no particular encoding. Errors name the path and the system's reason.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/output_file.h"

namespace captoria {

// Whether there is a file at `path` that is not a folder.
bool FileExists(const std::string& path);

bool FolderExists(const std::string& path);

// `path` as an absolute path without "." and ".."; unchanged if the working folder no longer exists.
std::string AbsolutePath(const std::string& path);

// The names (without folder) of the files in `folder` that match `pattern`, in which "*" matches any text and "?" one
// byte. ASCII case is ignored. Folders are skipped. Sorted by bytes, so every machine gives the same order. Empty if
// there is no such folder.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view pattern);

// The content of the file. TooLarge if it has more than `limit` bytes; never reads much more than that.
Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t limit = std::uint64_t{1} << 30);

// Replaces the file with `content` in one step: a reader sees either the whole old file or the whole new one, even
// after a failure or a power cut. The content goes to a file beside it, which is synced if asked for and then renamed.
// On failure the old file is untouched and nothing else is left. If `path` is a symbolic link, its target is replaced.
// An existing file keeps its permissions.
Result<void> WriteWholeFile(const std::string& path, std::string_view content, Sync sync = Sync::Yes);

// Copies content and permissions in the same safe way. Unwritable if both paths lead to the same file.
Result<void> CopyWholeFile(const std::string& from, const std::string& to);

// Creates the folder and its parents. No error if it exists.
Result<void> CreateFolder(const std::string& path);

// No error if there is no such file. A folder is not removed.
Result<void> RemoveFile(const std::string& path);

// Renames a file within one file system. Fails if a file of the new name exists.
Result<void> RenameWithoutReplacing(const std::string& from, const std::string& to);

}  // namespace captoria
