// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Paths taken apart and joined as texts, byte for byte: no file is looked at and no byte is changed, so a name in any
// encoding survives.
//
// The separator of a path is "/" where it holds one and the system uses it, else "\". So "/m/a.avi" and "C:\a\b.avi"
// both come apart rightly, and a backslash inside a Unix name stays part of the name.
#pragma once

#include <string>
#include <string_view>

namespace captoria {

char PathSeparator(std::string_view path);

// The text after the last separator; the whole text when there is none.
std::string_view GetFileNameOnly(std::string_view path);

// The text before the last separator, without it; the whole text when there is none.
std::string_view GetPathOnly(std::string_view path);

// The folder a path's file is in, ending in a separator: "./" for a bare name.
std::string FolderOf(std::string_view path);

// The text before the last "."; the whole text when there is none. Give it a name, not a path with dotted folders.
std::string_view RemoveExt(std::string_view name);

// `folder`, the folder's separator and `name`; no second separator where `folder` already ends in one.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace captoria
