// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Opening a document with the program that belongs to it: a film with the player, an address with the browser.
#pragma once

#include <string>

#include "base/result.h"

namespace captoria {

class DocumentOpener {
 public:
  virtual ~DocumentOpener() = default;

  // A path, relative to our working folder, or an address such as "https://...". Does not wait for the program, nor
  // does it hear whether that could do anything with the document.
  virtual Result<void> Open(const std::string& path_or_address) = 0;
};

// By what the desktop has been told of the kind of document, through xdg-open.
class DesktopOpener final : public DocumentOpener {
 public:
  // Unsupported when xdg-open is not on PATH.
  Result<void> Open(const std::string& path_or_address) override;
};

}  // namespace captoria
