// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How a long job reports its progress and learns that it should stop.
#pragma once

#include <cstddef>

namespace captoria {

class JobProgress {
 public:
  virtual ~JobProgress() = default;

  // Reports that `done` of `total` steps are finished; false if the user wants to stop. Called from one thread at a
  // time, not always the same thread, and rarely enough that an implementation may be slow.
  virtual bool Report(std::size_t done, std::size_t total) = 0;
};

// For jobs that show no progress and cannot be stopped.
class NoProgress final : public JobProgress {
 public:
  bool Report(std::size_t, std::size_t) override { return true; }
};

}  // namespace captoria
