// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Before which frame of a film each packet of its new subtitle streams has to stand, so that a player that reads the
// file once from front to back holds it in time.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "media/avi/avi_file.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

class InterleaveSchedule {
 public:
  // A packet stands this long before it is shown, as in films of players' makers: 13 frames of 25 a second.
  static constexpr std::int64_t kLeadMilliseconds = 520;

  struct Packet {
    int stream = 0;  // as given to Add
    const SubtitleSource* source = nullptr;
    std::size_t index = 0;
  };

  // For a film whose frame n is shown at (start + n) * scale / rate seconds.
  InterleaveSchedule(std::uint32_t start, std::uint32_t scale, std::uint32_t rate)
      : start_(start), scale_(scale), rate_(rate) {}

  void Add(int stream, std::shared_ptr<SubtitleSource> source);

  // The next packet that has to stand before frame `frame`; call it until there is none. Frames come in their order.
  std::optional<Packet> NextBefore(std::uint64_t frame);

  // The same for packets of whatever time.
  std::optional<Packet> NextAtEnd();

 private:
  struct Track {
    int stream = 0;
    std::shared_ptr<SubtitleSource> source;
    std::size_t next = 0;
    std::uint64_t due = 0;  // the frame that packet `next` stands before
  };

  // The frame that is on the screen the lead before `milliseconds`.
  std::uint64_t FrameFor(std::int64_t milliseconds) const;
  Packet Take(Track& track);

  std::int64_t start_;
  std::int64_t scale_;
  std::int64_t rate_;
  std::vector<Track> tracks_;
};

}  // namespace captoria
