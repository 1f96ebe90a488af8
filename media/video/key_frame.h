// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Recognises key frames, which need no other picture, by their first bytes. For files without a usable index.
#pragma once

#include <optional>
#include <string_view>

#include "base/bytes.h"

namespace captoria {

enum class PictureCoding {
  Alone,    // every picture stands alone: MJPEG, DV, uncompressed
  Mpeg4,    // MPEG-4 part 2
  MsMpeg4,  // its predecessors, versions 2 and 3
  H264,     // with start codes
  Unknown,  // others; their data is not examined
};

// `compression` is the four bytes in the stream's format.
PictureCoding PictureCodingOf(std::string_view compression);

// How many bytes of a picture to pass to IsKeyPicture.
constexpr std::size_t kKeyFrameLook = 4096;

// Nothing if the data does not show it.
std::optional<bool> IsKeyPicture(PictureCoding coding, ByteView beginning);

}  // namespace captoria
