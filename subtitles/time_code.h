// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Times of cues and streams: whole milliseconds for arithmetic, and the texts in lists and files.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace captoria {

using Milliseconds = std::chrono::milliseconds;

// "00:01:02,500": hours, minutes and seconds with two digits each, hours above 99 with more. `time` is not negative.
std::string FormatTimeCode(Milliseconds time);

// The same form with "." before the milliseconds, for a duration in seconds. A negative duration is written as 0.
std::string MakeTime(float seconds);

// Why a time could not be read. The reason completes a sentence that begins "the start time".
struct TimeFault {
  std::string reason;
};

// Reads a time as written in subtitle files, "0:1:2,5": hours 0 to 23, minutes and seconds 0 to 59 with one or two
// digits each, then a comma and a decimal fraction of a second. Text after the fraction is ignored; without digits the
// fraction is 0. It is rounded to the nearest millisecond, halves up. Sets `time`, or returns the fault and leaves
// `time` alone.
std::optional<TimeFault> ReadTimeCode(std::string_view text, Milliseconds& time);

}  // namespace captoria
