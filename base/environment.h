// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Environment variables as a function, so that tests can bring their own.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace captoria {

// The value of an environment variable, or nothing if it is not set.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

}  // namespace captoria
