// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a full disk looks like to a program, without a disk to fill.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace captoria {

// Runs `work` while no file may grow past `bytes`.
template <typename Work>
void WithFullDisk(rlim_t bytes, Work work) {
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tight{bytes, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
  work();
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, old_handler);
}

}  // namespace captoria
