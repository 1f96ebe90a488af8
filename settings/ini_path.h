// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How the INI store splits a path: at its last separator (base/path_text.h), and at the first point of the name. The
// name of "C:\a\b.old.ini" is "b" and its extension is "old.ini".
#pragma once

#include <string>
#include <string_view>

namespace captoria {

// The name in `path` without folder or drive. Mode 1 gives the text before the name's first point, mode 2 the text
// after it (empty without a point), any other mode the whole name.
std::string ExtractName(std::string_view path, int mode = 0);

// The folder of `path` without a separator at its end; the current folder if `path` names no folder.
std::string ExtractPath(std::string_view path);

}  // namespace captoria
