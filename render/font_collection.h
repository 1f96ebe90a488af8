// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The fonts of this machine, found once and shared by every thread that draws.
#pragma once

#include <memory>
#include <mutex>

#include "base/result.h"

// Fontconfig's own name for what is kept here; its header stays out of ours.
struct _FcConfig;

namespace captoria {

class FontCollection {
 public:
  // Unreadable when the font configuration cannot be loaded, NotFound on a machine without any font: films without a
  // letter on their subtitles would be no use to anybody.
  static Result<std::shared_ptr<FontCollection>> Open();

  // Fonts that are outlines. Colour fonts are left out, as outlines make the better four-colour bitmap wherever another
  // font has the character.
  _FcConfig* Outlines() const { return outlines_.get(); }

  // All fonts: for what no outline font has. Loaded when first asked for; safe from any thread.
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
