// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The clock that measures progress and the time left. It never goes back, even if the wall clock is set back.
#pragma once

#include <chrono>

namespace captoria {

class Clock {
 public:
  virtual ~Clock() = default;

  // The time since a fixed moment, such as the clock's creation.
  virtual std::chrono::nanoseconds Elapsed() const = 0;
};

class SteadyClock final : public Clock {
 public:
  std::chrono::nanoseconds Elapsed() const override { return std::chrono::steady_clock::now() - start_; }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace captoria
