// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/progress_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>

#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::size_t kLineLength = 20 + 1 + 20 + 1;  // two numbers of up to 20 digits, a blank and a line end

// Removes blanks and a number from the beginning of `text`.
std::optional<std::size_t> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

}  // namespace

void ProgressFile::Write(std::size_t done, std::size_t total) {
  constexpr std::chrono::milliseconds kPause{100};
  const auto now = clock_.Elapsed();
  if (!file_.IsOpen() || now < next_) return;
  next_ = now + kPause;
  std::array<char, kLineLength + 1> line;
  std::snprintf(line.data(), line.size(), "%20zu %20zu\n", done, total);
  file_.Write({line.data(), kLineLength});
}

std::optional<std::pair<std::size_t, std::size_t>> ReadProgress(const std::string& path) {
  const auto line = ReadWholeFile(path, kLineLength);
  if (!line) return std::nullopt;
  std::string_view rest = *line;
  const auto done = TakeNumber(rest);
  const auto total = TakeNumber(rest);
  if (!done || !total || rest != "\n" || *done > *total || *total == 0) return std::nullopt;
  return std::pair{*done, *total};
}

}  // namespace captoria
