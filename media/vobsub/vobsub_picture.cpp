// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/vobsub/vobsub_picture.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "media/xsub/subtitle_rle.h"

namespace captoria {
namespace {

constexpr std::array<Color, 4> kUsualColors{Color{0, 0, 0}, {255, 255, 255}, {0, 0, 0}, {128, 128, 128}};

int Difference(const Color& a, const Color& b) {
  const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
  return red * red + green * green + blue * blue;
}

// The two most similar colours, first the colour with fewer pixels.
std::pair<std::size_t, std::size_t> MostAlike(const std::array<Color, 4>& colors,
                                              const std::array<std::size_t, 4>& pixels) {
  std::pair<std::size_t, std::size_t> alike;
  int least = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < colors.size(); ++i) {
    for (std::size_t j = i + 1; j < colors.size(); ++j) {
      if (Difference(colors[i], colors[j]) >= least) continue;
      least = Difference(colors[i], colors[j]);
      alike = pixels[i] < pixels[j] ? std::pair{i, j} : std::pair{j, i};
    }
  }
  return alike;
}

struct FieldCodes {
  ByteView even;
  ByteView odd;
  bool whole = false;  // neither reaches the end of the unit, where it may be cut off
};

FieldCodes DecodeFields(ByteView spu, const SpuDisplay& display, SubtitlePicture& picture) {
  const auto decode = [&](std::size_t offset, Field field) {
    const ByteView code = spu.subspan(offset);
    return code.first(DecodeField(code, field, picture));
  };
  const auto [even_offset, odd_offset] = display.field_offsets;
  FieldCodes codes;
  codes.even = decode(even_offset, Field::Even);
  codes.odd = decode(odd_offset, Field::Odd);
  codes.whole = even_offset + codes.even.size() < spu.size() && odd_offset + codes.odd.size() < spu.size();
  return codes;
}

// Whether players accept the position and size of the picture.
bool IsFitting(const PlacedPicture& placed, const Size& frame) {
  const auto fits = [](int begin, int length, int limit) {
    return begin >= 0 && begin + length <= limit && begin % 2 == 0 && length % 2 == 0;
  };
  return fits(placed.left, placed.picture.width, frame.width) && fits(placed.top, placed.picture.height, frame.height);
}

void ReplaceCodes(Bytes& packet, const FieldCodes& codes) {
  ByteWriter out;
  out.Append(ByteView{packet}.first(kXsubHeader)).Append(codes.even).Append(codes.odd);
  packet = out.Take();
  constexpr std::size_t kEvenSize = 39;
  packet[kEvenSize] = static_cast<std::uint8_t>(codes.even.size() & 0xFF);
  packet[kEvenSize + 1] = static_cast<std::uint8_t>(codes.even.size() >> 8);
}

}  // namespace

SpuColors ColorsOf(const VobSubIndex& index, const SpuDisplay& display) {
  SpuColors entries;
  for (std::size_t i = 0; i < entries.colors.size(); ++i) {
    if (index.custom_colors) {
      entries.colors[i] = index.custom_colors->colors[i];
      entries.visible[i] = !index.custom_colors->transparent[i];
    } else {
      entries.colors[i] = index.palette ? (*index.palette)[display.palette_numbers[i]] : kUsualColors[i];
      entries.visible[i] = display.contrast[i] > 0;
    }
  }
  return entries;
}

bool RenumberColors(SubtitlePicture& picture, const std::array<bool, 4>& visible) {
  std::array<std::size_t, 4> pixels{};
  for (const std::uint8_t pixel : picture.pixels) ++pixels[pixel];
  std::array<std::uint8_t, 4> number{0, 1, 2, 3};
  std::array<bool, 4> taken{};
  for (std::size_t i = 0; i < taken.size(); ++i) {
    taken[i] = visible[i] && pixels[i] > 0;
    if (!visible[i]) number[i] = 0;
  }

  if (std::ranges::all_of(taken, std::identity{})) {
    const auto [rarer, other] = MostAlike(picture.colors, pixels);
    number[rarer] = static_cast<std::uint8_t>(other);
    taken[rarer] = false;
  }
  if (taken[0]) {
    // One of the others is free, because all four are never taken here.
    const auto free = static_cast<std::uint8_t>(std::ranges::find(taken, false) - taken.begin());
    picture.colors[free] = picture.colors[0];
    for (std::size_t i = 0; i < number.size(); ++i) {
      if (visible[i] && number[i] == 0) number[i] = free;
    }
  }

  bool changed = false;
  for (std::uint8_t& pixel : picture.pixels) {
    changed = changed || number[pixel] != pixel;
    pixel = number[pixel];
  }
  return changed;
}

Result<Bytes> ConvertSpu(ByteView spu, const SpuDisplay& display, const VobSubIndex& index, const XsubTimes& times) {
  PlacedPicture placed{.picture = SubtitlePicture(display.width, display.height),
                       .left = display.left + index.left_shift,
                       .top = display.top + index.top_shift};
  const FieldCodes codes = DecodeFields(spu, display, placed.picture);
  const SpuColors entries = ColorsOf(index, display);
  placed.picture.colors = entries.colors;
  const bool renumbered = RenumberColors(placed.picture, entries.visible);
  const bool as_it_is = !renumbered && codes.whole && IsFitting(placed, index.frame);
  auto packet = EncodeXsub({.times = times, .picture = std::move(placed)}, index.frame);
  if (packet && as_it_is) ReplaceCodes(*packet, codes);
  return packet;
}

}  // namespace captoria
