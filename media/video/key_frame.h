// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Whether a picture's data begins one that needs no other, told by its first bytes. For files whose index does not say.
#pragma once

#include <optional>
#include <string_view>

#include "base/bytes.h"

namespace captoria {

enum class PictureCoding {
  Alone,      // every picture stands alone: MJPEG, DV, uncompressed
  Mpeg4,      // MPEG-4 part 2
  MsMpeg4,    // the versions 2 and 3 that came before it
  H264,       // with start codes
  NotLooked,  // others, whose data is not looked at
};

// By the name of the compression in the stream's format, four bytes.
PictureCoding PictureCodingOf(std::string_view compression);

// How much of a picture's beginning has to be seen.
constexpr std::size_t kKeyFrameLook = 4096;

// Nothing when the data does not tell.
std::optional<bool> IsKeyPicture(PictureCoding coding, ByteView beginning);

}  // namespace captoria
