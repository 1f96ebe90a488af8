// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/markup.h"

#include <charconv>
#include <string>

#include "base/ascii.h"

namespace captoria {
namespace {

constexpr std::array<std::string_view, 6> kTags{"<b>", "<i>", "</b>", "</i>", "<font ", "</font>"};
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kColorAttribute = "color=";

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// The first six characters of `text` that are neither quotes nor "#". A character of several bytes is represented by
// its first byte, which takes the place of a digit and is not one.
std::string ColorDigits(std::string_view text) {
  std::string digits;
  for (const char c : text) {
    if (digits.size() == 6) break;
    if (c != '"' && c != '#' && !ContinuesCharacter(c)) digits += c;
  }
  digits.resize(6, ' ');
  return digits;
}

std::uint8_t HexPair(std::string_view pair) {
  std::uint8_t value = 0;
  std::from_chars(pair.data(), pair.data() + pair.size(), value, 16);
  return value;
}

}  // namespace

std::vector<std::string_view> SplitStyledLines(std::string_view text) {
  std::vector<std::string_view> lines;
  if (text.empty()) return lines;
  for (auto end = text.find(kLineEnd); end != text.npos; end = text.find(kLineEnd)) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + kLineEnd.size());
  }
  lines.push_back(text);
  return lines;
}

std::size_t ForwardSearch::From(std::size_t from) {
  if (!searched_ || found_ < from) found_ = line_.find(wanted_, from);
  searched_ = true;
  return found_;
}

MarkupReader::MarkupReader(std::string_view line)
    : line_(line),
      done_(line.empty()),
      tags_{ForwardSearch{line, kTags[0]}, ForwardSearch{line, kTags[1]}, ForwardSearch{line, kTags[2]},
            ForwardSearch{line, kTags[3]}, ForwardSearch{line, kTags[4]}, ForwardSearch{line, kTags[5]}},
      closing_bracket_(line, ">") {}

std::optional<MarkupRun> MarkupReader::Next() {
  if (done_) return std::nullopt;
  MarkupRun run;
  std::size_t nearest = line_.npos;
  for (std::size_t i = 0; i < tags_.size(); ++i) {
    const std::size_t place = tags_[i].From(position_);
    if (place >= nearest) continue;
    nearest = place;
    run.tag = static_cast<MarkupTag>(i);
  }
  run.text = line_.substr(position_, nearest == line_.npos ? nearest : nearest - position_);
  run.bold_ahead = tags_.front().From(position_) != line_.npos;
  if (run.tag == MarkupTag::None) {
    done_ = true;
  } else if (run.tag == MarkupTag::Font) {
    position_ = TakeFontTag(nearest, run);
  } else {
    position_ = nearest + kTags[static_cast<std::size_t>(run.tag)].size();
  }
  return run;
}

// Returns the position after the tag.
std::size_t MarkupReader::TakeFontTag(std::size_t start, MarkupRun& run) {
  const std::size_t inside = start + kTags[static_cast<std::size_t>(MarkupTag::Font)].size();
  const std::size_t bracket = closing_bracket_.From(inside);
  if (bracket == line_.npos) return inside;
  run.attributes = line_.substr(inside, bracket - inside);
  return bracket + 1;
}

std::optional<Color> FontTagColor(std::string_view attributes) {
  if (!EqualsIgnoringCase(attributes.substr(0, kColorAttribute.size()), kColorAttribute)) return std::nullopt;
  const std::string digits = ColorDigits(attributes.substr(kColorAttribute.size()));
  const std::string_view view = digits;
  return Color{HexPair(view.substr(0, 2)), HexPair(view.substr(2, 2)), HexPair(view.substr(4, 2))};
}

}  // namespace captoria
