// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A folder whose content nobody else can change.
#pragma once

#include <string>

#include "base/result.h"

namespace captoria {

// Creates the folder, but not its parents; only its owner can change its content. False if the name is taken.
Result<bool> CreatePrivateFolder(const std::string& path);

// Whether `path` is a folder, not a link to one, whose content only the user of this process can change. Those who can
// replace the folder as a whole do not count: on a file system without permissions, that is everybody.
bool IsPrivateFolder(const std::string& path);

}  // namespace captoria
