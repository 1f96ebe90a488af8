// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How an operation that can fail answers: with its value, or with an Error that a person can act on.
#pragma once

#include <string>
#include <tl/expected.hpp>
#include <utility>

namespace captoria {

enum class ErrorKind {
  NotFound,     // the file or folder is not there
  Unreadable,   // it is there and cannot be opened or read
  Unwritable,   // it cannot be created, written, synced or renamed; the message tells a full disk from a refusal
  Damaged,      // its content is not what it has to be
  TooLarge,     // beyond a bound of ours
  Unsupported,  // understood, and not something we do
  Cancelled,    // the user stopped it; nothing went wrong
};

struct Error {
  ErrorKind kind;
  std::string message;  // names file and place, ends without a full stop
};

template <typename T>
using Result = tl::expected<T, Error>;

// For `return Failure(kind, message);` in a function that gives a Result.
inline tl::unexpected<Error> Failure(ErrorKind kind, std::string message) {
  return tl::unexpected<Error>({kind, std::move(message)});
}

}  // namespace captoria
