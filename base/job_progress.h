// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How long work tells where it is and learns that it should stop.
#pragma once

#include <cstddef>

namespace captoria {

class JobProgress {
 public:
  virtual ~JobProgress() = default;

  // `done` of `total` steps are behind us. False: the user wants it stopped. Called from one thread at a time, though
  // not always the same one, and seldom enough that a body need not hurry.
  virtual bool Report(std::size_t done, std::size_t total) = 0;
};

// For work that nobody watches.
class NoProgress final : public JobProgress {
 public:
  bool Report(std::size_t, std::size_t) override { return true; }
};

}  // namespace captoria
