// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An environment made for a test.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/program_folder.h"

namespace captoria {

inline Environment EnvironmentOf(std::map<std::string, std::string> variables) {
  return [variables = std::move(variables)](const std::string& name) -> std::optional<std::string> {
    const auto found = variables.find(name);
    if (found == variables.end()) return std::nullopt;
    return found->second;
  };
}

}  // namespace captoria
