// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/vobsub/vobsub_packet.h"

#include <algorithm>
#include <utility>

namespace captoria {
namespace {

constexpr std::uint64_t kPackSize = 2048;
constexpr std::size_t kLargestSpu = 0x10000;

// The packs of one unit can be this far apart, because 31 other languages may show something large at the same time.
constexpr std::uint64_t kLongestSpan = 2 << 20;

constexpr std::uint8_t kPackHeader = 0xBA;
constexpr std::uint8_t kPrivateStream1 = 0xBD;

std::size_t BigU16(ByteView bytes, std::size_t at) { return ByteReader(bytes.subspan(at)).BigU16(); }

bool IsStartCode(ByteView bytes) { return bytes.size() >= 4 && bytes[0] == 0 && bytes[1] == 0 && bytes[2] == 1; }

bool IsPackHeader(ByteView bytes) { return IsStartCode(bytes) && bytes[3] == kPackHeader; }

// The length of the pack header that `bytes` begin with.
std::size_t PackHeaderSize(ByteView bytes) { return 14 + (bytes.size() >= 14 ? bytes[13] & 7U : 0); }

// Whether `bytes` begin with a pack with the first packet of a unit: that packet contains a time.
bool BeginsUnit(ByteView bytes, int substream) {
  if (!IsPackHeader(bytes)) return false;
  ByteReader in(bytes.subspan(std::min(PackHeaderSize(bytes), bytes.size())));
  const ByteView code = in.Take(4);
  in.Skip(3);
  const bool timed = (in.U8() & 0x80) != 0;
  in.Skip(in.U8());
  const bool wanted = in.U8() == 0x20 + substream;
  return timed && wanted && !in.Failed() && IsStartCode(code) && code[3] == kPrivateStream1;
}

// Where in `bytes` that is true of the rest of them, nearest to `wanted`; nothing if nowhere. Looks at the first
// `count` bytes only.
std::optional<std::size_t> Nearest(ByteView bytes, std::size_t count, std::size_t wanted, const auto& is_meant) {
  std::optional<std::size_t> nearest;
  const auto distance = [&](std::size_t at) { return at < wanted ? wanted - at : at - wanted; };
  for (std::size_t at = 0; at < std::min(count, bytes.size()); ++at) {
    if (bytes[at] != 0 || !is_meant(bytes.subspan(at))) continue;
    if (!nearest || distance(at) < distance(*nearest)) nearest = at;
  }
  return nearest;
}

// Reads small parts of a file in order, through a larger buffer.
class ForwardReader {
 public:
  ForwardReader(const InputFile& file, std::uint64_t end) : file_(file), end_(std::min(end, file.Size())) {}

  // The `count` bytes at `position`, fewer at the end. Valid until the next call.
  Result<ByteView> At(std::uint64_t position, std::size_t count) {
    if (position >= end_) return ByteView{};
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, end_ - position));
    if (position < begin_ || position + count > begin_ + buffer_.size()) {
      buffer_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(std::max(count, kPiece), end_ - position)));
      begin_ = position;
      const auto got = file_.ReadAt(position, buffer_);
      if (!got) return tl::unexpected(got.error());
      buffer_.resize(*got);
    }
    const auto offset = static_cast<std::size_t>(position - begin_);
    return ByteView{buffer_}.subspan(offset, std::min(count, buffer_.size() - offset));
  }

 private:
  static constexpr std::size_t kPiece = 4 * kPackSize;

  const InputFile& file_;
  std::uint64_t end_;
  std::uint64_t begin_ = 0;
  Bytes buffer_;
};

// Joins the packets of a stream to a unit.
class SpuCollector {
 public:
  explicit SpuCollector(int substream) : substream_(substream) {}

  // `packet` begins after its length field. False if the unit is complete, or if this packet begins the next unit.
  bool Add(ByteView packet) {
    ByteReader in(packet);
    in.Skip(1);
    const bool timed = (in.U8() & 0x80) != 0;
    const ByteView header = in.Take(in.U8());
    if (in.U8() != 0x20 + substream_ || in.Failed()) return true;
    // The first packet of a unit contains its time; a few writers repeat it in the other packets.
    if (timed && header.size() >= 5) {
      const Bytes time(header.begin(), header.begin() + 5);
      if (!spu_.empty() && time != time_) return false;
      time_ = time;
    }
    const ByteView payload = in.Take(std::min(in.Left(), kLargestSpu - spu_.size()));
    spu_.insert(spu_.end(), payload.begin(), payload.end());
    return !IsWhole();
  }

  Bytes Take() { return std::move(spu_); }

 private:
  // A size without room for the control sequences is wrong; then the unit ends where the next unit begins.
  bool IsWhole() const {
    if (spu_.size() < 4) return false;
    const std::size_t size = BigU16(spu_, 0);
    return spu_.size() == kLargestSpu || (size > BigU16(spu_, 2) && spu_.size() >= size);
  }

  int substream_;
  Bytes time_;
  Bytes spu_;
};

// Executes the control sequences.
class ControlReader {
 public:
  // Executes the commands of one sequence.
  void Sequence(int time, ByteView commands) {
    ByteReader in(commands);
    bool going_on = true;
    while (going_on && in.Left() > 0 && !display_.stop) going_on = Command(time, in.U8(), in);
    settled_ = has_contrast_ && IsVisible();
  }

  // Nothing unless the commands gave an area and the positions of the codes.
  std::optional<SpuDisplay> Display() const { return has_area_ && has_codes_ ? std::optional{display_} : std::nullopt; }

 private:
  bool Command(int time, std::uint8_t command, ByteReader& in) {
    switch (command) {
      case 0x00:
        display_.forced = true;
        [[fallthrough]];
      case 0x01:
        if (!started_) display_.start = time;
        started_ = true;
        return true;
      case 0x02:
        if (time > display_.start) display_.stop = time;
        return true;
      case 0x03:
        return Entries(in, display_.palette_numbers);
      case 0x04:
        has_contrast_ = true;
        return Entries(in, display_.contrast);
      case 0x05:
        return Area(in);
      case 0x06:
        return Codes(in);
      case 0x07:
        in.Skip(std::max<std::size_t>(in.BigU16(), 2) - 2);
        return true;
      default:
        return false;
    }
  }

  bool IsVisible() const {
    return std::ranges::any_of(display_.contrast, [](std::uint8_t c) { return c > 0; });
  }

  // If a picture fades in or is highlighted later, its first visible state counts.
  bool Entries(ByteReader& in, std::array<std::uint8_t, 4>& entries) {
    const std::uint16_t value = in.BigU16();
    if (settled_) return true;
    for (std::size_t i = 0; i < entries.size(); ++i) entries[i] = value >> (4 * i) & 0xF;
    return true;
  }

  bool Area(ByteReader& in) {
    const auto pair = [&] {
      const int high = in.U8(), middle = in.U8(), low = in.U8();
      return std::pair{high << 4 | middle >> 4, (middle & 0xF) << 8 | low};
    };
    const auto [left, right] = pair();
    const auto [top, bottom] = pair();
    if (has_area_ || in.Failed() || right < left || bottom < top) return true;
    display_.left = left;
    display_.top = top;
    display_.width = right - left + 1;
    display_.height = bottom - top + 1;
    has_area_ = true;
    return true;
  }

  bool Codes(ByteReader& in) {
    const std::array<std::size_t, 2> offsets{in.BigU16(), in.BigU16()};
    if (!has_codes_ && !in.Failed()) display_.field_offsets = offsets;
    has_codes_ = has_codes_ || !in.Failed();
    return true;
  }

  SpuDisplay display_;
  bool started_ = false;
  bool settled_ = false;  // the entries no longer change
  bool has_contrast_ = false;
  bool has_area_ = false;
  bool has_codes_ = false;
};

// Where to go on after bytes at `at` that are no start code: the nearest pack header, which is behind if bytes are
// missing, but not before `first`. If none is near, a place to look next.
Result<std::uint64_t> NextPack(ForwardReader& in, std::uint64_t at, std::uint64_t first) {
  const std::uint64_t begin = std::max(first, at - std::min(at, kPackSize));
  const auto bytes = in.At(begin, static_cast<std::size_t>(at - begin + kPackSize + 3));
  if (!bytes) return tl::unexpected(bytes.error());
  const auto found = Nearest(*bytes, bytes->size(), static_cast<std::size_t>(at - begin), IsPackHeader);
  return found ? begin + *found : at + kPackSize;
}

}  // namespace

Result<std::uint64_t> FindUnit(const InputFile& sub, std::uint64_t position, std::uint64_t reach, int substream) {
  constexpr std::size_t kLongestHeaders = 14 + 7 + 9 + 255 + 1;
  reach = std::min(reach, kPackSize / 2);
  const std::uint64_t begin = position - std::min(position, reach);
  const auto back = static_cast<std::size_t>(position - begin), count = back + static_cast<std::size_t>(reach);
  Bytes bytes(4);
  const auto start = sub.ReadAt(position, bytes);
  if (!start) return tl::unexpected(start.error());
  if (*start == 4 && IsStartCode(bytes)) return position;
  bytes.resize(count + kLongestHeaders);
  const auto got = sub.ReadAt(begin, bytes);
  if (!got) return tl::unexpected(got.error());
  const auto begins_unit = [&](ByteView at) { return BeginsUnit(at, substream); };
  const auto found = Nearest(ByteView{bytes}.first(*got), count, back, begins_unit);
  return found ? begin + *found : position;
}

Result<Bytes> ReadSpu(const InputFile& sub, std::uint64_t position, std::uint64_t end, int substream) {
  end = std::min(end, sub.Size());
  if (position < end) end = std::min(end, position + kLongestSpan);
  ForwardReader in(sub, end);
  SpuCollector collector(substream);
  std::uint64_t at = position, after_pack = position;
  for (bool wanted = true; wanted && at < end;) {
    const auto start = in.At(at, 14);
    if (!start) return tl::unexpected(start.error());
    if (start->size() < 6) break;
    const std::uint8_t id = (*start)[3];
    if (!IsStartCode(*start)) {
      const auto next = NextPack(in, at, after_pack);
      if (!next) return tl::unexpected(next.error());
      at = *next;
    } else if (id == kPackHeader) {
      at += PackHeaderSize(*start);
      after_pack = at;
    } else {
      const std::size_t length = BigU16(*start, 4);
      if (id == kPrivateStream1) {
        const auto packet = in.At(at + 6, length);
        if (!packet) return tl::unexpected(packet.error());
        wanted = collector.Add(*packet);
      }
      at += 6 + length;
    }
  }
  Bytes spu = collector.Take();
  if (spu.size() < 4) {
    return Failure(ErrorKind::Damaged, sub.Path() + ": contains no subtitle at byte " + std::to_string(position));
  }
  return spu;
}

Result<SpuDisplay> ParseSpu(ByteView spu, const std::string& place) {
  ControlReader control;
  std::size_t at = spu.size() < 4 ? spu.size() : BigU16(spu, 2);
  while (at + 4 <= spu.size()) {
    // Units of 1024 ticks of 90 kHz.
    const int time = static_cast<int>(BigU16(spu, at) * 1024 / 90);
    const std::size_t next = BigU16(spu, at + 2);
    const bool is_last = next <= at;
    const std::size_t end = is_last ? spu.size() : std::min(next, spu.size());
    if (end >= at + 4) control.Sequence(time, spu.subspan(at + 4, end - at - 4));
    at = is_last ? spu.size() : next;
  }
  auto display = control.Display();
  const auto outside = [&](std::size_t offset) { return offset >= spu.size(); };
  if (!display || std::ranges::any_of(display->field_offsets, outside)) {
    return Failure(ErrorKind::Damaged, place + ": the subtitle is damaged");
  }
  return *display;
}

}  // namespace captoria
