// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How the INI store takes a path apart: by its last separator (base/path_text.h), and by the first point of the
// name, so that the name of "C:\a\b.old.ini" is "b" and its extension "old.ini".
#pragma once

#include <string>
#include <string_view>

namespace captoria {

// The name in `path` without its folder or drive. Mode 1 is the text before the name's first point, mode 2 the text
// behind it (empty without a point), any other mode the whole name.
std::string ExtractName(std::string_view path, int mode = 0);

// The folder of `path` without a separator at its end; the current folder where `path` names none.
std::string ExtractPath(std::string_view path);

}  // namespace captoria
