// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/large_pages.h"

#include <sys/mman.h>

#include <memory>

namespace captoria {

void PreferLargePages(void* data, std::size_t size) {
  constexpr std::size_t kPage = std::size_t{2} << 20;
  if (std::align(kPage, kPage, data, size) == nullptr) return;
  (void)::madvise(data, size / kPage * kPage, MADV_HUGEPAGE);
}

}  // namespace captoria
