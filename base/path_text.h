// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Splits and joins paths as text, byte for byte. The file system is not read and no byte changes, so names in any
// encoding survive.
//
// The separator of a path is "/" if the path contains one and the system uses it, otherwise "\". So "/m/a.avi" and
// "C:\a\b.avi" both split correctly, and a backslash inside a Unix name stays part of the name.
#pragma once

#include <string>
#include <string_view>

namespace captoria {

char PathSeparator(std::string_view path);

// The text after the last separator; the whole text if there is no separator.
std::string_view GetFileNameOnly(std::string_view path);

// The text before the last separator; the whole text if there is no separator.
std::string_view GetPathOnly(std::string_view path);

// The folder of the file, ending in a separator; "./" for a bare name.
std::string FolderOf(std::string_view path);

// The text before the last "."; the whole text if there is no dot. Pass a name, not a path whose folders contain dots.
std::string_view RemoveExt(std::string_view name);

// `folder`, its separator and `name`. No separator is added if `folder` already ends in one.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace captoria
