// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An XSUB packet: one cue with its times, place, colours and picture, the payload of one chunk of a subtitle stream.
//
//   0  "[HH:MM:SS.mmm-HH:MM:SS.mmm]", absolute from the beginning of the film
//  27  width, height, left, top, right, bottom (the last column and row), length of the first field's code: 16 bits
//      each, little-endian
//  41  four colours, red, green and blue
//  53  the code of the even rows, then that of the odd rows
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/bytes.h"
#include "base/result.h"
#include "media/xsub/subtitle_picture.h"

namespace captoria {

// Times in milliseconds from the beginning of the film.
struct XsubTimes {
  std::int64_t show = 0;
  std::int64_t hide = 0;

  bool operator==(const XsubTimes&) const = default;
};

struct XsubCue {
  XsubTimes times;
  PlacedPicture picture;
};

// The latest time a packet can tell: 99:59:59.999.
inline constexpr std::int64_t kLatestXsubTime = 359'999'999;

// The bytes before the code.
inline constexpr std::size_t kXsubHeader = 53;

// The longest packet we make or take: two fields as long as the length of the first can be told.
inline constexpr std::size_t kLargestXsubPacket = kXsubHeader + std::size_t{2} * 0xFFFF;

// A time of exactly the form "00:01:02.500", minutes and seconds below 60; nothing for any other text.
std::optional<std::int64_t> ReadXsubTime(std::string_view text);

// The times at the beginning of a packet; nothing when it does not begin with them.
std::optional<XsubTimes> ReadXsubTimes(ByteView packet);

// The packet of `cue` in the DXSB form, its picture fitted to the frame (see FitToFrame). Unsupported when the cue does
// not end after it starts or ends beyond kLatestXsubTime; TooLarge for a picture so noisy that the length of a field's
// code does not fit its 16 bits. Both messages complete the name of the cue.
Result<Bytes> EncodeXsub(const XsubCue& cue, const Size& frame);

}  // namespace captoria
