// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A font as users choose it and settings keep it.
#pragma once

#include <string>

namespace captoria {

struct Font {
  std::string name;
  double size = 0;  // points
  bool bold = false;
  bool italic = false;
  int charset = 1;  // 1: the default character set

  bool operator==(const Font&) const = default;
};

}  // namespace captoria
