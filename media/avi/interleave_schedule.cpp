// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/interleave_schedule.h"

#include <algorithm>
#include <utility>

namespace captoria {

void InterleaveSchedule::Add(int stream, std::shared_ptr<SubtitleSource> source) {
  const std::uint64_t due = source->Count() > 0 ? FrameFor(source->ShowTime(0)) : 0;
  tracks_.push_back({.stream = stream, .source = std::move(source), .next = 0, .due = due});
}

std::uint64_t InterleaveSchedule::FrameFor(std::int64_t milliseconds) const {
  // 111 hours keep the product below within 64 bits for every rate that a header can contain.
  constexpr std::int64_t kLatest = std::int64_t{400'000} * 1000;
  const std::int64_t time = std::clamp(milliseconds - kLeadMilliseconds, std::int64_t{0}, kLatest);
  return static_cast<std::uint64_t>(std::max(time * rate_ / (1000 * scale_) - start_, std::int64_t{0}));
}

InterleaveSchedule::Packet InterleaveSchedule::Take(Track& track) {
  const Packet packet{.stream = track.stream, .source = track.source.get(), .index = track.next};
  if (++track.next < track.source->Count())
    track.due = std::max(track.due, FrameFor(track.source->ShowTime(track.next)));
  return packet;
}

std::optional<InterleaveSchedule::Packet> InterleaveSchedule::NextBefore(std::uint64_t frame) {
  for (Track& track : tracks_) {
    if (track.next < track.source->Count() && track.due <= frame) return Take(track);
  }
  return std::nullopt;
}

std::optional<InterleaveSchedule::Packet> InterleaveSchedule::NextAtEnd() {
  // In order of time, so that the streams stay interleaved.
  Track* first = nullptr;
  for (Track& track : tracks_) {
    if (track.next < track.source->Count() && (first == nullptr || track.due < first->due)) first = &track;
  }
  if (first == nullptr) return std::nullopt;
  return Take(*first);
}

}  // namespace captoria
