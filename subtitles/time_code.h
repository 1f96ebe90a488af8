// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Times of cues and streams: whole milliseconds to count with, and the texts that lists and files show.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace captoria {

using Milliseconds = std::chrono::milliseconds;

// "00:01:02,500": hours, minutes and seconds with two digits each, hours with more above 99. `time` is not negative.
std::string FormatTimeCode(Milliseconds time);

// The same form with "." before the milliseconds, for a duration in seconds; below 0 reads as 0.
std::string MakeTime(float seconds);

// Why a time could not be read; the words complete "the start time ...".
struct TimeFault {
  std::string reason;
};

// A time as subtitle files write it, "0:1:2,5": hours 0 to 23, minutes and seconds 0 to 59 with one or two digits each,
// then a comma and a decimal fraction of a second. What follows the fraction's digits is ignored; no digit is no
// fraction. The fraction is rounded to the nearest millisecond, a half upwards.
// Gives the time, or the fault and leaves `time` alone.
std::optional<TimeFault> ReadTimeCode(std::string_view text, Milliseconds& time);

}  // namespace captoria
