// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An XSUB packet: one cue with its times, position, colours and picture. It is the data of one chunk of a subtitle
// stream.
//
//   0  "[HH:MM:SS.mmm-HH:MM:SS.mmm]", counted from the beginning of the film
//  27  width, height, left, top, right, bottom (the last column and row), length of the first field's code: 16 bits
//      each, little-endian
//  41  four colours, red, green and blue
//  53  the code of the even rows, then the code of the odd rows
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

// The latest time that a packet can contain, 99:59:59.999.
inline constexpr std::int64_t kLatestXsubTime = 359'999'999;

// The bytes before the code.
inline constexpr std::size_t kXsubHeader = 53;

// The longest packet we write or read: two fields of the greatest length that fits the header.
inline constexpr std::size_t kLargestXsubPacket = kXsubHeader + std::size_t{2} * 0xFFFF;

// Reads a time of exactly the form "00:01:02.500", with minutes and seconds below 60. Nothing for any other text.
std::optional<std::int64_t> ReadXsubTime(std::string_view text);

// The times at the beginning of a packet, if it begins with times.
std::optional<XsubTimes> ReadXsubTimes(ByteView packet);

// The packet of `cue` in the DXSB form, with its picture fitted to the frame (see FitToFrame). Unsupported if the cue
// does not end after it starts, or ends after kLatestXsubTime. TooLarge if the picture has so much detail that the
// length of a field's code does not fit 16 bits. Put the name of the cue before the error message.
Result<Bytes> EncodeXsub(const XsubCue& cue, const Size& frame);

}  // namespace captoria
