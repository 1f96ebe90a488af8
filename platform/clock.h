// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The clock that progress and time left are measured by. It never goes back, whatever is done to the wall clock.
#pragma once

#include <chrono>

namespace captoria {

class Clock {
 public:
  virtual ~Clock() = default;

  // Since a moment that stays the same as long as the clock lives.
  virtual std::chrono::nanoseconds Elapsed() const = 0;
};

class SteadyClock final : public Clock {
 public:
  std::chrono::nanoseconds Elapsed() const override { return std::chrono::steady_clock::now() - start_; }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace captoria
