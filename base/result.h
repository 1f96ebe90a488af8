// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The result of an operation that can fail: its value, or an Error that a person can act on.
#pragma once

#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <utility>

namespace captoria {

enum class ErrorKind {
  NotFound,     // the file or folder does not exist
  Unreadable,   // it exists but cannot be opened or read
  Unwritable,   // it cannot be created, written, synced or renamed; the message says whether the disk is full
  Damaged,      // its content is not valid
  TooLarge,     // it exceeds one of our limits
  Unsupported,  // it is valid, but we cannot handle it
  Cancelled,    // the user stopped it; nothing went wrong
};

// "not-found", "unreadable" and so on: the kind as programs read it.
std::string_view NameOf(ErrorKind kind);

struct Error {
  ErrorKind kind;
  std::string message;  // names the file and the place in it; no full stop at the end
};

template <typename T>
using Result = tl::expected<T, Error>;

// For `return Failure(kind, message);` in a function that returns a Result.
inline tl::unexpected<Error> Failure(ErrorKind kind, std::string message) {
  return tl::unexpected<Error>({kind, std::move(message)});
}

}  // namespace captoria
