// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Less paging for memory that is about to be filled whole.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <memory>

namespace captoria {

// Asks the system for pages of 2 MiB in the `size` bytes at `data`, which nobody has written to yet. Of the time to
// read a hundred thousand cues a third is the kernel's, handing out pages of 4 KiB one by one. Where the system has no
// such pages, or they do not fit in, nothing changes.
inline void PreferLargePages(void* data, std::size_t size) {
  constexpr std::size_t kPage = std::size_t{2} << 20;
  if (std::align(kPage, kPage, data, size) == nullptr) return;
  (void)::madvise(data, size / kPage * kPage, MADV_HUGEPAGE);
}

}  // namespace captoria
