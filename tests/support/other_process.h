// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a test wants to know of a process that is not its own child.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include "platform/files.h"

namespace captoria {

// Whether it comes true within ten seconds.
inline bool Soon(const std::function<bool()>& happened) {
  using namespace std::chrono_literals;
  for (const auto last = std::chrono::steady_clock::now() + 10s; !happened();) {
    if (std::chrono::steady_clock::now() > last) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

// A process that nobody has taken the exit status of is over all the same.
inline bool IsOver(const std::string& id) {
  const std::string status = ReadWholeFile("/proc/" + id + "/stat").value_or("");
  return status.empty() || status.find(") Z ") != status.npos;
}

}  // namespace captoria
