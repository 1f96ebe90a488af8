// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/bmp/bmp_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bmp = captoria::ParseBmp({data, size}, "fuzz");
  if (!bmp) return 0;
  // What was accepted keeps its promises.
  if (bmp->pixels.size() != static_cast<std::size_t>(bmp->width) * static_cast<std::size_t>(bmp->height))
    __builtin_trap();
  for (const std::uint8_t pixel : bmp->pixels) {
    if (pixel >= bmp->colors.size()) __builtin_trap();
  }
  return 0;
}
