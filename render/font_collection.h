// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The fonts of this machine. They are found once and shared by all drawing threads.
#pragma once

#include <memory>
#include <mutex>

#include "base/result.h"

// Fontconfig's type, declared here so that its header is not needed.
struct _FcConfig;  // NOLINT(clang-diagnostic-reserved-identifier)

namespace captoria {

class FontCollection {
 public:
  // Unreadable if the font configuration cannot be loaded; NotFound if no font is installed, as every subtitle would be
  // empty.
  static Result<std::shared_ptr<FontCollection>> Open();

  // The outline fonts. An outline makes a better four-colour bitmap than a picture of a colour font, so colour fonts
  // are only used for characters that no outline font has.
  _FcConfig* Outlines() const { return outlines_.get(); }

  // All fonts, colour fonts included. Loaded at the first call; may be called from any thread.
  _FcConfig* All();

 private:
  struct Release {
    void operator()(_FcConfig* config) const;
  };
  using Config = std::unique_ptr<_FcConfig, Release>;

  explicit FontCollection(Config outlines) : outlines_(std::move(outlines)) {}

  Config outlines_;
  std::once_flag all_loaded_;
  Config all_;
};

}  // namespace captoria
