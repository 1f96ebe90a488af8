// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Ctrl-C, a request to end and a terminal that goes away, as something to ask for instead of the end of the process.
#pragma once

namespace captoria {

// While one lives, these signals only set a flag. Where several live, inside each other, they share it; the outermost
// begins with it cleared. What whoever started us had ignored stays ignored, as `nohup` wants it.
class Interrupt {
 public:
  Interrupt();
  Interrupt(const Interrupt&) = delete;
  Interrupt& operator=(const Interrupt&) = delete;
  ~Interrupt();

  static bool Requested();
};

}  // namespace captoria
