// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/time_code.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/ascii.h"

namespace captoria {
namespace {

// Writes `value`, which is below 10 to the power of `digits`, and returns the end. A list of a hundred thousand cues
// has two hundred thousand times; printf would take longer for them than reading the file.
char* PutDigits(long long value, int digits, char* to) {
  for (int i = digits - 1; i >= 0; --i, value /= 10) to[i] = static_cast<char>('0' + value % 10);
  return to + digits;
}

std::string Format(Milliseconds time, char separator) {
  const auto count = std::max<long long>(time.count(), 0);
  const long long hours = count / 3'600'000;
  std::array<char, 16> text;
  char* end = text.data();
  if (hours <= 99) end = PutDigits(hours, 2, end);
  *end++ = ':';
  end = PutDigits(count / 60'000 % 60, 2, end);
  *end++ = ':';
  end = PutDigits(count / 1000 % 60, 2, end);
  *end++ = separator;
  end = PutDigits(count % 1000, 3, end);
  const std::string_view rest{text.data(), end};
  return hours <= 99 ? std::string{rest} : std::to_string(hours).append(rest);
}

// One or two digits below `limit`, or -1.
int ReadPart(std::string_view text, int limit) {
  if (text.empty() || text.size() > 2 || !std::ranges::all_of(text, IsDigit)) return -1;
  int value = 0;
  for (const char digit : text) value = value * 10 + (digit - '0');
  return value < limit ? value : -1;
}

// Hours, minutes and seconds as milliseconds, or -1.
int TimeOfDay(std::string_view hours, std::string_view minutes, std::string_view seconds) {
  const int h = ReadPart(hours, 24), m = ReadPart(minutes, 60), s = ReadPart(seconds, 60);
  return h < 0 || m < 0 || s < 0 ? -1 : ((h * 60 + m) * 60 + s) * 1000;
}

int ReadTimeOfDay(std::string_view text) {
  const auto first = text.find(':');
  const auto second = first == text.npos ? text.npos : text.find(':', first + 1);
  if (second == text.npos) return -1;
  return TimeOfDay(text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1));
}

// The same for the usual form "HH:MM:SS,"; -1 also for any other form.
int ReadUsualTimeOfDay(std::string_view text) {
  if (text.size() < 9 || text[2] != ':' || text[5] != ':' || text[8] != ',') return -1;
  return TimeOfDay(text.substr(0, 2), text.substr(3, 2), text.substr(6, 2));
}

// The digits after the decimal comma as milliseconds, 0 to 1000. Digits after the fourth cannot change the rounding.
int ReadFraction(std::string_view text) {
  int tenths = 0;  // of a millisecond
  int weight = 1000;
  for (const char digit : text.substr(0, 4)) {
    if (!IsDigit(digit)) break;
    tenths += (digit - '0') * weight;
    weight /= 10;
  }
  return (tenths + 5) / 10;
}

}  // namespace

std::string FormatTimeCode(Milliseconds time) { return Format(time, ','); }

std::string MakeTime(float seconds) {
  // Not a number, or too large for milliseconds in 64 bits.
  if (!(seconds > 0) || seconds > 9e15F) return Format(Milliseconds{0}, '.');
  return Format(Milliseconds{std::llround(static_cast<double>(seconds) * 1000)}, '.');
}

std::optional<TimeFault> ReadTimeCode(std::string_view text, Milliseconds& time) {
  text = Trim(text);
  // Nearly all times have the usual form. Searching each for its separators would take a tenth of the time to read a
  // file.
  std::size_t comma = 8;
  int time_of_day = ReadUsualTimeOfDay(text);
  if (time_of_day < 0) {
    comma = text.find(',');
    if (comma == text.npos) return TimeFault{"has no comma before the milliseconds"};
    time_of_day = ReadTimeOfDay(Trim(text.substr(0, comma)));
  }
  if (time_of_day < 0) return TimeFault{"is not hours:minutes:seconds with hours 0 to 23, minutes and seconds 0 to 59"};
  time = Milliseconds{time_of_day + ReadFraction(Trim(text.substr(comma + 1)))};
  return std::nullopt;
}

}  // namespace captoria
