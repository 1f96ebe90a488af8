// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Where the packets of an XSUB stream come from: a converted file, a list of bitmaps, a VobSub pair. Packets are made
// when they are asked for, so eight long tracks take no more memory than one cue.
#pragma once

#include <cstdint>

#include "base/bytes.h"
#include "base/geometry.h"
#include "base/result.h"

namespace captoria {

class SubtitleSource {
 public:
  virtual ~SubtitleSource() = default;

  // The size of the frame that the cues were placed on; the video's may differ.
  virtual Size Frame() const = 0;

  // The packets stand in the order of their start times.
  virtual std::size_t Count() const = 0;

  // When packet `index` is to be shown, in milliseconds from the beginning of the film.
  virtual std::int64_t ShowTime(std::size_t index) const = 0;

  // The payload of the packet's chunk.
  virtual Result<Bytes> Packet(std::size_t index) const = 0;
};

}  // namespace captoria
