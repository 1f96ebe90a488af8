// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Decides before which frame of a film each packet of the new subtitle streams is written, so that a player that reads
// the file once from beginning to end has every packet in time.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "media/avi/avi_file.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

class InterleaveSchedule {
 public:
  // Packets precede their show time by 13 frames at 25 frames per second, as in films made for hardware players.
  static constexpr std::int64_t kLeadMilliseconds = 520;

  struct Packet {
    int stream = 0;  // as passed to Add
    const SubtitleSource* source = nullptr;
    std::size_t index = 0;
  };

  // Frame n of the film is shown at (start + n) * scale / rate seconds.
  InterleaveSchedule(std::uint32_t start, std::uint32_t scale, std::uint32_t rate)
      : start_(start), scale_(scale), rate_(rate) {}

  void Add(int stream, std::shared_ptr<SubtitleSource> source);

  // The next packet to write before frame `frame`. Call it until it returns nothing, for every frame in order.
  std::optional<Packet> NextBefore(std::uint64_t frame);

  // The next packet after the last frame, whatever its time.
  std::optional<Packet> NextAtEnd();

 private:
  struct Track {
    int stream = 0;
    std::shared_ptr<SubtitleSource> source;
    std::size_t next = 0;
    std::uint64_t due = 0;  // packet `next` is written before this frame
  };

  // The frame on the screen kLeadMilliseconds before `milliseconds`.
  std::uint64_t FrameFor(std::int64_t milliseconds) const;
  Packet Take(Track& track);

  std::int64_t start_;
  std::int64_t scale_;
  std::int64_t rate_;
  std::vector<Track> tracks_;
};

}  // namespace captoria
