// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// VobSub pairs made for a test: pictures as DVD subpicture units, cut into packs of 2048 bytes, and the index's lines.
#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/xsub/subtitle_rle.h"
#include "tests/support/test_folder.h"

namespace captoria {

struct TestSpu {
  PlacedPicture placed;
  std::array<std::uint8_t, 4> palette_numbers{0, 1, 2, 3};
  std::array<std::uint8_t, 4> contrast{0, 15, 15, 15};
  std::optional<int> stop = 88;  // in units of 1024/90 ms
  bool odd_rows_first = false;
  bool forced = false;
  Bytes before_end{};                           // commands before the one that ends the display
  Bytes at_start{};                             // and at its beginning
  std::optional<std::array<Bytes, 2>> codes{};  // of the even and the odd rows, in place of the picture's own
};

inline void PutBig16(Bytes& bytes, std::size_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value >> 8));
  bytes.push_back(static_cast<std::uint8_t>(value));
}

inline Bytes SpuBytes(const TestSpu& spu) {
  const auto& [picture, left, top] = spu.placed;
  std::array<Bytes, 2> codes;
  EncodeField(picture, Field::Even, codes[0]);
  EncodeField(picture, Field::Odd, codes[1]);
  if (spu.codes) codes = *spu.codes;
  const std::size_t first = spu.odd_rows_first ? 1 : 0, control = 4 + codes[0].size() + codes[1].size();
  std::array<std::size_t, 2> offsets;
  offsets[first] = 4;
  offsets[1 - first] = 4 + codes[first].size();

  Bytes out(4);
  out.insert(out.end(), codes[first].begin(), codes[first].end());
  out.insert(out.end(), codes[1 - first].begin(), codes[1 - first].end());
  const auto entries = [&](std::uint8_t command, const std::array<std::uint8_t, 4>& values) {
    out.push_back(command);
    PutBig16(out, static_cast<std::size_t>(values[3] << 12 | values[2] << 8 | values[1] << 4 | values[0]));
  };
  const auto pair = [&](int low, int size) {
    const int high = low + size - 1;
    out.push_back(static_cast<std::uint8_t>(low >> 4));
    out.push_back(static_cast<std::uint8_t>((low & 0xF) << 4 | high >> 8));
    out.push_back(static_cast<std::uint8_t>(high));
  };
  PutBig16(out, 0);
  const std::size_t link = out.size();
  PutBig16(out, control);
  out.insert(out.end(), spu.at_start.begin(), spu.at_start.end());
  entries(3, spu.palette_numbers);
  entries(4, spu.contrast);
  out.push_back(5);
  pair(left, picture.width);
  pair(top, picture.height);
  out.push_back(6);
  for (const std::size_t offset : offsets) PutBig16(out, offset);
  out.push_back(spu.forced ? 0 : 1);
  out.push_back(0xFF);
  const std::size_t last = spu.stop ? out.size() : control;
  if (spu.stop) {
    PutBig16(out, static_cast<std::size_t>(*spu.stop));
    PutBig16(out, last);
    out.insert(out.end(), spu.before_end.begin(), spu.before_end.end());
    out.insert(out.end(), {2, 0xFF});
  }
  const auto put = [&](std::size_t at, std::size_t value) {
    out[at] = static_cast<std::uint8_t>(value >> 8);
    out[at + 1] = static_cast<std::uint8_t>(value);
  };
  put(0, out.size());
  put(2, control);
  put(link, last);
  return out;
}

class VobSubPair {
 public:
  // Every header of a pack or packet is followed by `stuffing` bytes, 0 to 7.
  explicit VobSubPair(std::size_t stuffing = 0) : stuffing_(stuffing) {}

  // Writes the units' packs in turn, as when languages show something at the same time; gives where each begins.
  std::vector<std::size_t> AddPacks(const std::vector<std::pair<int, Bytes>>& units) {
    ++time_;
    std::vector<std::size_t> begins(units.size()), done(units.size());
    for (bool more = true; more;) {
      more = false;
      for (std::size_t i = 0; i < units.size(); ++i) {
        const auto& [substream, spu] = units[i];
        if (done[i] == spu.size()) continue;
        if (done[i] == 0) begins[i] = sub_.size();
        done[i] += AddPack(substream, ByteView{spu}.subspan(done[i]), done[i] == 0);
        more = true;
      }
    }
    return begins;
  }

  // Removes the padding packet at the end, which the writers of some files leave out.
  void CutPadding() {
    constexpr std::array<std::uint8_t, 4> kPadding{0, 0, 1, 0xBE};
    sub_.erase(std::find_end(sub_.begin(), sub_.end(), kPadding.begin(), kPadding.end()), sub_.end());
  }

  static std::string Timestamp(int time, std::size_t position) {
    std::array<char, 80> line{};
    std::snprintf(line.data(), line.size(), "timestamp: %02d:%02d:%02d:%03d, filepos: %09zx\n", time / 3600000,
                  time / 60000 % 60, time / 1000 % 60, time % 1000, position);
    return line.data();
  }

  Bytes& Sub() { return sub_; }

  // Gives the path of the index.
  std::string Save(const TestFolder& folder, const std::string& index) const {
    folder.Put("film.sub", {sub_.begin(), sub_.end()});
    return folder.Put("film.idx", index);
  }

 private:
  std::size_t AddPack(int substream, ByteView rest, bool first) {
    const std::size_t header = first ? 5 : 0, room = 2048 - 14 - 6 - 3 - header - 2 * stuffing_ - 1;
    const std::size_t count = std::min(rest.size(), room), left = room - count;
    const std::size_t stuffing = stuffing_ + (left < 6 ? left : 0);  // too little for a padding packet
    const std::size_t end = sub_.size() + 2048;
    sub_.insert(sub_.end(), {0, 0, 1, 0xBA, 0x44, 0, 4, 0, 4, 1, 1, 0x89, 0xC3});
    sub_.push_back(static_cast<std::uint8_t>(0xF8 | stuffing_));
    sub_.resize(sub_.size() + stuffing_, 0xFF);
    sub_.insert(sub_.end(), {0, 0, 1, 0xBD});
    PutBig16(sub_, 3 + header + stuffing + 1 + count);
    sub_.insert(sub_.end(),
                {0x81, static_cast<std::uint8_t>(first ? 0x80 : 0), static_cast<std::uint8_t>(header + stuffing)});
    if (first)
      sub_.insert(sub_.end(),
                  {0x21, 0, 1, static_cast<std::uint8_t>(time_ >> 7), static_cast<std::uint8_t>(time_ << 1 | 1)});
    sub_.resize(sub_.size() + stuffing, 0xFF);
    sub_.push_back(static_cast<std::uint8_t>(0x20 + substream));
    sub_.insert(sub_.end(), rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(count));
    if (sub_.size() < end) {
      sub_.insert(sub_.end(), {0, 0, 1, 0xBE});
      PutBig16(sub_, end - sub_.size() - 2);
      sub_.resize(end, 0xFF);
    }
    return count;
  }

  Bytes sub_;
  std::size_t stuffing_;
  unsigned time_ = 0;
};

}  // namespace captoria
