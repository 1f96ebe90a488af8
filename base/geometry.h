// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Places and sizes in pixels. x grows to the right, y downwards.
#pragma once

namespace captoria {

struct Point {
  int x = 0;
  int y = 0;

  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0;
  int height = 0;

  bool operator==(const Size&) const = default;
};

}  // namespace captoria
