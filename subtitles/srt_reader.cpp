// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/srt_reader.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "base/text_case.h"
#include "platform/large_pages.h"
#include "subtitles/time_code.h"

namespace captoria {
namespace {

constexpr std::string_view kArrow = "-->";

// Splits a text into lines.
class LineSplitter {
 public:
  explicit LineSplitter(std::string_view text)
      : text_(text), return_(text.find('\r')), newline_(text.find('\n')), arrow_(text.find(kArrow)) {}

  bool Next(std::string_view& line) {
    if (start_ >= text_.size()) return false;
    const std::size_t end = std::min({return_, newline_, text_.size()});
    line = text_.substr(start_, end - start_);
    has_arrow_ = arrow_ < end;
    start_ = end + (newline_ == return_ + 1 && end == return_ ? 2 : 1);
    // Each is searched for again only after passing it, so that each costs one walk over the text.
    if (return_ < start_) return_ = text_.find('\r', start_);
    if (newline_ < start_) newline_ = text_.find('\n', start_);
    if (arrow_ < start_) arrow_ = text_.find(kArrow, start_);
    return true;
  }

  // Whether the last line from Next contains an arrow.
  bool HasArrow() const { return has_arrow_; }

 private:
  std::string_view text_;
  std::size_t start_ = 0;
  std::size_t return_;   // the next one at or after start_, or npos
  std::size_t newline_;  // likewise
  std::size_t arrow_;    // likewise; an arrow never spans two lines
  bool has_arrow_ = false;
};

// Whether a terminal obeys the character instead of showing it: control characters, line and paragraph separators, and
// the marks that turn the direction of text.
bool SteersTerminal(char32_t c) {
  return c < ' ' || (c >= 0x7F && c <= 0x9F) || c == 0x61C || c == 0x200E || c == 0x200F ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

// The beginning of a line for a message, as a line may be megabytes long. What could steer a terminal becomes a blank.
std::string Excerpt(std::string_view line) {
  constexpr std::size_t kLongest = 80;
  std::string excerpt;
  while (!line.empty() && excerpt.size() < kLongest) {
    const auto [value, length] = FirstCharacter(line);
    excerpt += SteersTerminal(value) ? " " : line.substr(0, length);
    line.remove_prefix(length);
  }
  return excerpt + (line.empty() ? "" : "...");
}

// Builds cues from lines. The fields belong to the cue being collected.
class CueCollector {
 public:
  // Reserves room for `expected` cues: growing step by step takes a third of the whole time.
  explicit CueCollector(std::size_t expected) {
    cues_.reserve(expected);
    PreferLargePages(cues_.data(), expected * sizeof(SubtitleCue));
  }

  void TextLine(std::string_view line) {
    if (Trim(line).empty()) return;
    text_ += line;
    text_ += kLineBreak;
  }

  // Ends the cue being collected and begins the next one. If `line` does not contain two times, returns the reason; the
  // cue being collected is lost.
  std::optional<std::string> TimeLine(std::string_view line) {
    const auto arrow = line.find(kArrow);
    Milliseconds show{}, hide{};
    if (auto fault = ReadTimeCode(line.substr(0, arrow), show)) return "the start time " + fault->reason;
    if (auto fault = ReadTimeCode(line.substr(arrow + kArrow.size()), hide)) return "the end time " + fault->reason;
    EndCue();
    show_ = show;
    hide_ = hide;
    return std::nullopt;
  }

  void EndCue() {
    if (text_.empty()) return;
    text_.resize(text_.size() - kLineBreak.size());
    cues_.push_back({.Number = std::to_string(cues_.size() + 1),
                     .Show = FormatTimeCode(show_),
                     .Hide = FormatTimeCode(hide_),
                     .Text = text_,
                     .Tag{}});
    text_.clear();
  }

  std::vector<SubtitleCue>& Cues() { return cues_; }

 private:
  std::vector<SubtitleCue> cues_;
  std::string text_;
  Milliseconds show_{0};
  Milliseconds hide_{0};
};

// Estimates the number of cues in `text` from its beginning. A file that begins with nothing but arrows gets no more
// room than three times its size.
std::size_t ExpectedCues(std::string_view text) {
  const std::string_view beginning = text.substr(0, std::size_t{1} << 16);
  std::size_t arrows = 1;
  for (auto at = beginning.find(kArrow); at != text.npos; at = beginning.find(kArrow, at + kArrow.size())) ++arrows;
  const std::size_t expected = beginning.empty() ? 0 : arrows * (text.size() / beginning.size() + 1);
  return std::min(expected, 3 * text.size() / sizeof(SubtitleCue));
}

}  // namespace

SrtReading ReadSrt(std::string_view text) {
  CueCollector collector(ExpectedCues(text));
  LineSplitter lines(text);
  std::optional<SrtProblem> problem;
  std::string_view current;
  std::string_view line;
  for (std::size_t number = 1; lines.Next(line); ++number) {
    const std::string_view previous = std::exchange(current, line);
    if (!lines.HasArrow()) {
      collector.TextLine(previous);
      continue;
    }
    if (auto reason = collector.TimeLine(line)) {
      problem = {number, *reason + ": \"" + Excerpt(line) +
                             "\". A time line reads \"00:00:01,000 --> 00:00:02,500\". " + "Reading stopped here; " +
                             std::to_string(collector.Cues().size()) + " cue(s) before it were kept"};
      break;
    }
    current = {};  // a time line is never text
  }
  if (!problem) {
    collector.TextLine(current);
    collector.EndCue();
  }
  return {std::move(collector.Cues()), std::move(problem)};
}

}  // namespace captoria
