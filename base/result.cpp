// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "base/result.h"

namespace captoria {

std::string_view NameOf(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::NotFound:
      return "not-found";
    case ErrorKind::Unreadable:
      return "unreadable";
    case ErrorKind::Unwritable:
      return "unwritable";
    case ErrorKind::Damaged:
      return "damaged";
    case ErrorKind::TooLarge:
      return "too-large";
    case ErrorKind::Unsupported:
      return "unsupported";
    default:
      return "cancelled";
  }
}

}  // namespace captoria
