// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The tags in a line of a cue's text. "a<b>b</b>" reads as three runs: "a" ended by <b>, "b" ended by </b>, and an
// empty one ended by the line.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "base/color.h"

namespace captoria {

// The lines of `text`, which CR LF separates; an empty text has none.
std::vector<std::string_view> SplitStyledLines(std::string_view text);

enum class MarkupTag { Bold, Italic, BoldEnd, ItalicEnd, Font, FontEnd, None };

struct MarkupRun {
  std::string_view text;                       // may be empty
  MarkupTag tag = MarkupTag::None;             // what ends the run; None: the line does
  bool bold_ahead = false;                     // the line has a <b> at the end of the run or later
  std::optional<std::string_view> attributes;  // of a <font ...> tag that is closed by ">"
};

// Finds the occurrences of a text in a line from left to right. All calls together take one pass over the line.
class ForwardSearch {
 public:
  ForwardSearch(std::string_view line, std::string_view wanted) : line_(line), wanted_(wanted) {}

  // The first occurrence at `from` or later, npos if there is none. `from` must not decrease from call to call.
  std::size_t From(std::size_t from);

 private:
  std::string_view line_;
  std::string_view wanted_;
  std::size_t found_ = 0;
  bool searched_ = false;
};

// Reads a line run by run. Tags need no partner. If a <font ...> tag is not closed by ">", only "<font " is removed and
// the rest is text.
class MarkupReader {
 public:
  explicit MarkupReader(std::string_view line);

  // No value after the last run. An empty line has no runs.
  std::optional<MarkupRun> Next();

 private:
  std::size_t TakeFontTag(std::size_t start, MarkupRun& run);

  std::string_view line_;
  std::size_t position_ = 0;
  bool done_;
  std::array<ForwardSearch, 6> tags_;  // in the order of MarkupTag
  ForwardSearch closing_bracket_;
};

// The colour in the attributes of a <font ...> tag, which must begin with it: color=#FF8000, with or without "#" and
// double quotes. Six characters are read as three pairs of digits; a pair ends at the first character that is not a
// hexadecimal digit, and a missing pair is 0.
std::optional<Color> FontTagColor(std::string_view attributes);

}  // namespace captoria
