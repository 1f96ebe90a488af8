// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Opens a document with the user's program for it: a film with the player, a web address with the browser.
#pragma once

#include <string>

#include "base/result.h"

namespace captoria {

class DocumentOpener {
 public:
  virtual ~DocumentOpener() = default;

  // Takes a path, absolute or relative to the working folder, or an address such as "https://...". Does not wait for
  // the program, so it cannot report whether the document was opened in the end.
  virtual Result<void> Open(const std::string& path_or_address) = 0;
};

// Uses xdg-open, which asks the desktop for the right program.
class DesktopOpener final : public DocumentOpener {
 public:
  // Unsupported if xdg-open is not on PATH.
  Result<void> Open(const std::string& path_or_address) override;
};

}  // namespace captoria
