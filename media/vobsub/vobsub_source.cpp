// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/vobsub/vobsub_source.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>

#include "base/ascii.h"
#include "media/vobsub/vobsub_index.h"
#include "media/vobsub/vobsub_packet.h"
#include "media/vobsub/vobsub_picture.h"
#include "media/xsub/xsub_packet.h"
#include "platform/files.h"
#include "platform/input_file.h"

namespace captoria {
namespace {

constexpr std::int64_t kLastStays = 5000;

// The part of the .sub that can contain the packs of a unit.
struct SpuExtent {
  std::uint64_t position = 0;
  std::uint64_t end = 0;
};

struct Showing {
  std::int64_t start = 0;
  std::optional<std::int64_t> stop;
  bool visible = false;
  SpuExtent extent;
};

struct TimedSpu {
  XsubTimes times;
  SpuExtent extent;
};

// The name of the index with the other ending, in the case that exists on disk.
std::string SubPath(const std::string& idx_path) {
  constexpr std::string_view kEnding = ".idx";
  std::string stem = idx_path;
  if (EndsIgnoringCase(stem, kEnding)) stem.resize(stem.size() - kEnding.size());
  for (const char* ending : {".sub", ".SUB", ".Sub"}) {
    if (FileExists(stem + ending)) return stem + ending;
  }
  return stem + ".sub";
}

// In order.
std::vector<std::uint64_t> PositionsOf(const std::vector<VobSubCue>& cues) {
  std::vector<std::uint64_t> positions;
  positions.reserve(cues.size());
  for (const VobSubCue& cue : cues) positions.push_back(cue.position);
  std::ranges::sort(positions);
  return positions;
}

class VobSubSource final : public SubtitleSource {
 public:
  VobSubSource(VobSubIndex index, InputFile sub, int substream)
      : index_(std::move(index)), sub_(std::move(sub)), substream_(substream) {}

  // The times are in the control sequences, so every unit is read once.
  Result<void> Schedule(std::vector<VobSubCue> cues);

  std::size_t LeftOut() const { return left_out_; }
  Size Frame() const override { return index_.frame; }
  std::size_t Count() const override { return spus_.size(); }
  std::int64_t ShowTime(std::size_t index) const override { return spus_.at(index).times.show; }

  Result<Bytes> Packet(std::size_t index) const override {
    const TimedSpu& timed = spus_.at(index);
    auto spu = ReadSpu(sub_, timed.extent.position, timed.extent.end, substream_);
    if (!spu) return spu;
    const auto display = ParseSpu(*spu, sub_.Path());
    if (!display) return tl::unexpected(display.error());
    auto packet = ConvertSpu(*spu, *display, index_, timed.times);
    if (!packet)
      packet.error().message = sub_.Path() + ": subtitle " + std::to_string(index + 1) + " " + packet.error().message;
    return packet;
  }

 private:
  Result<void> Locate(std::vector<VobSubCue>& cues) const;
  Result<std::optional<Showing>> Look(const VobSubCue& cue, const SpuExtent& extent) const;
  void GiveTimes(const std::vector<Showing>& showings);

  VobSubIndex index_;
  InputFile sub_;
  int substream_;
  std::vector<TimedSpu> spus_;
  std::size_t left_out_ = 0;
};

// Nothing if the unit is damaged.
Result<std::optional<Showing>> VobSubSource::Look(const VobSubCue& cue, const SpuExtent& extent) const {
  const auto spu = ReadSpu(sub_, extent.position, extent.end, substream_);
  if (!spu && spu.error().kind != ErrorKind::Damaged) return tl::unexpected(spu.error());
  if (!spu) return std::nullopt;
  const auto display = ParseSpu(*spu, sub_.Path());
  if (!display) return std::nullopt;

  Showing showing{.start = cue.time + display->start, .stop = {}, .visible = false, .extent = extent};
  if (display->stop) showing.stop = cue.time + *display->stop;
  showing.visible = std::ranges::any_of(ColorsOf(index_, *display).visible, std::identity{});
  if (index_.forced_only && !display->forced) showing.visible = false;
  return showing;
}

// Replaces the positions of the index, which are wrong after a place where the .sub lost or gained bytes, by those of
// the units. A unit is searched for no farther than halfway to the next one, whose picture it would take otherwise.
Result<void> VobSubSource::Locate(std::vector<VobSubCue>& cues) const {
  const std::vector<std::uint64_t> listed = PositionsOf(cues);
  for (VobSubCue& cue : cues) {
    const auto [here, next] = std::equal_range(listed.begin(), listed.end(), cue.position);
    std::uint64_t gap = UINT64_MAX;
    if (next != listed.end()) gap = *next - cue.position;
    if (here != listed.begin()) gap = std::min(gap, cue.position - *std::prev(here));
    const auto found = FindUnit(sub_, cue.position, gap / 2, substream_);
    if (!found) return tl::unexpected(found.error());
    cue.position = *found;
  }
  return {};
}

Result<void> VobSubSource::Schedule(std::vector<VobSubCue> cues) {
  if (auto located = Locate(cues); !located) return located;
  const std::vector<std::uint64_t> positions = PositionsOf(cues);
  std::vector<Showing> showings;
  for (const VobSubCue& cue : cues) {
    const auto next = std::ranges::upper_bound(positions, cue.position);
    const auto showing = Look(cue, {cue.position, next == positions.end() ? sub_.Size() : *next});
    if (!showing) return tl::unexpected(showing.error());
    if (*showing) {
      showings.push_back(**showing);
    } else {
      ++left_out_;
    }
  }
  std::ranges::stable_sort(showings, {}, &Showing::start);
  GiveTimes(showings);
  return {};
}

// An invisible picture still ends the picture before it. Of two that start together, the second one is shown.
void VobSubSource::GiveTimes(const std::vector<Showing>& showings) {
  for (std::size_t i = 0; i < showings.size(); ++i) {
    const Showing& showing = showings[i];
    const bool is_last = i + 1 == showings.size();
    std::int64_t hide = is_last ? showing.stop.value_or(showing.start + kLastStays) : showings[i + 1].start;
    if (showing.stop) hide = std::min(hide, *showing.stop);
    const XsubTimes times{.show = std::max<std::int64_t>(showing.start, 0), .hide = std::min(hide, kLatestXsubTime)};
    if (!showing.visible) continue;
    if (times.show < times.hide) {
      spus_.push_back({times, showing.extent});
    } else {
      ++left_out_;
    }
  }
}

}  // namespace

Result<std::shared_ptr<SubtitleSource>> OpenVobSub(const std::string& idx_path, Findings* findings) {
  auto index = ReadVobSubIndex(idx_path);
  if (!index) return tl::unexpected(index.error());
  const VobSubLanguage* language = index->Language();
  if (language == nullptr) return Failure(ErrorKind::Damaged, idx_path + ": lists no subtitles");
  const VobSubLanguage chosen = *language;
  auto sub = InputFile::Open(SubPath(idx_path));
  if (!sub) return tl::unexpected(sub.error());

  auto source = std::make_shared<VobSubSource>(std::move(*index), std::move(*sub), chosen.substream);
  if (auto scheduled = source->Schedule(chosen.cues); !scheduled) return tl::unexpected(scheduled.error());
  if (source->Count() == 0) return Failure(ErrorKind::Damaged, idx_path + ": contains no subtitle that can be shown");
  if (source->LeftOut() > 0 && findings != nullptr) {
    findings->push_back({.kind = FindingKind::DamagedSubtitle,
                         .file = idx_path,
                         .message = std::to_string(source->LeftOut()) + " of " + std::to_string(chosen.cues.size()) +
                                    " subtitles cannot be shown and were left out"});
  }
  return source;
}

}  // namespace captoria
