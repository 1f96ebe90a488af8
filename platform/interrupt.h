// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Turns Ctrl-C, a request to terminate and a closed terminal into a flag that the program checks, so that it can end in
// its own way.
#pragma once

namespace captoria {

// While an object lives, these signals only set the flag. Nested objects share the flag; the outermost clears it first.
// A signal that was already ignored when the program started, as with `nohup`, stays ignored.
class Interrupt {
 public:
  Interrupt();
  Interrupt(const Interrupt&) = delete;
  Interrupt& operator=(const Interrupt&) = delete;
  ~Interrupt();

  static bool Requested();
};

}  // namespace captoria
