// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/xsub/xsub_packet.h"

#include <array>
#include <cstdio>
#include <string>

#include "base/ascii.h"
#include "media/xsub/subtitle_rle.h"

namespace captoria {
namespace {

constexpr std::size_t kTimes = 27;
constexpr std::size_t kTimeText = 12;
constexpr std::size_t kLongestField = 0xFFFF;

std::string TimesText(const XsubTimes& times) {
  const auto parts = [](std::int64_t time) {
    return std::array{static_cast<int>(time / 3'600'000), static_cast<int>(time / 60'000 % 60),
                      static_cast<int>(time / 1000 % 60), static_cast<int>(time % 1000)};
  };
  const auto show = parts(times.show), hide = parts(times.hide);
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), "[%02d:%02d:%02d.%03d-%02d:%02d:%02d.%03d]", show[0], show[1], show[2],
                show[3], hide[0], hide[1], hide[2], hide[3]);
  return text.data();
}

Result<void> CheckTimes(const XsubTimes& times) {
  if (times.show < 0) return Failure(ErrorKind::Unsupported, "starts before the film");
  if (times.hide <= times.show) return Failure(ErrorKind::Unsupported, "ends before it starts");
  if (times.hide > kLatestXsubTime) return Failure(ErrorKind::Unsupported, "ends after 99:59:59.999");
  return {};
}

std::uint16_t Word(int value) { return static_cast<std::uint16_t>(value); }

}  // namespace

std::optional<std::int64_t> ReadXsubTime(std::string_view text) {
  constexpr std::string_view kForm = "00:00:00.000";
  if (text.size() != kForm.size()) return {};
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    if (kForm[i] == '0' ? !IsDigit(text[i]) : text[i] != kForm[i]) return {};
  }
  const auto number = [&](std::size_t at, std::size_t digits) {
    std::int64_t value = 0;
    for (const char c : text.substr(at, digits)) value = 10 * value + (c - '0');
    return value;
  };
  const std::int64_t minutes = number(3, 2), seconds = number(6, 2);
  if (minutes > 59 || seconds > 59) return {};
  return ((number(0, 2) * 60 + minutes) * 60 + seconds) * 1000 + number(9, 3);
}

std::optional<XsubTimes> ReadXsubTimes(ByteView packet) {
  if (packet.size() < kTimes) return {};
  const std::string text{packet.begin(), packet.begin() + kTimes};
  if (text.front() != '[' || text[1 + kTimeText] != '-' || text.back() != ']') return {};
  const std::string_view view = text;
  const auto show = ReadXsubTime(view.substr(1, kTimeText)), hide = ReadXsubTime(view.substr(2 + kTimeText, kTimeText));
  if (!show || !hide) return {};
  return XsubTimes{*show, *hide};
}

Result<Bytes> EncodeXsub(const XsubCue& cue, const Size& frame) {
  if (auto fine = CheckTimes(cue.times); !fine) return tl::unexpected(fine.error());
  const PlacedPicture placed = FitToFrame(cue.picture, frame);
  const SubtitlePicture& picture = placed.picture;

  Bytes code;
  EncodeField(picture, Field::Even, code);
  const std::size_t even_size = code.size();
  EncodeField(picture, Field::Odd, code);
  if (even_size > kLongestField || code.size() - even_size > kLongestField) {
    return Failure(ErrorKind::TooLarge, "is too detailed for a subtitle: a field takes more than 65535 bytes");
  }

  ByteWriter out;
  out.Text(TimesText(cue.times)).U16(Word(picture.width)).U16(Word(picture.height));
  out.U16(Word(placed.left)).U16(Word(placed.top));
  out.U16(Word(placed.left + picture.width - 1)).U16(Word(placed.top + picture.height - 1));
  out.U16(static_cast<std::uint16_t>(even_size));
  for (const Color& color : picture.colors) out.U8(color.red).U8(color.green).U8(color.blue);
  out.Append(code);
  return out.Take();
}

}  // namespace captoria
