// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/vobsub/vobsub_index.h"

#include <algorithm>
#include <charconv>

#include "base/ascii.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr int kLongestSide = 16384;

// Takes values from the front of a line. Text that does not fit stays in place.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(Trim(text)) {}

  std::string_view Rest() const { return rest_; }

  template <typename Number>
  std::optional<Number> Take(int base = 10) {
    Number number{};
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number, base);
    if (error != std::errc{}) return std::nullopt;
    Drop(static_cast<std::size_t>(end - rest_.data()));
    return number;
  }

  // One character, any of `choices`.
  bool Take(std::string_view choices) {
    if (rest_.empty() || choices.find(rest_.front()) == choices.npos) return false;
    Drop(1);
    return true;
  }

  // `word` in any case.
  bool TakeWord(std::string_view word) {
    if (!EqualsIgnoringCase(rest_.substr(0, word.size()), word)) return false;
    Drop(word.size());
    return true;
  }

  // Hours, minutes, seconds and milliseconds, in milliseconds. The last colon may also be a full stop or comma.
  std::optional<std::int64_t> TakeTime() {
    const bool negative = rest_.starts_with('-');
    Take("+-");
    std::int64_t time = 0;
    for (const int unit : {0, 60, 60, 1000}) {
      if (unit != 0 && !Take(unit == 1000 ? ":.," : ":")) return std::nullopt;
      const auto part = Take<std::uint16_t>();
      if (!part) return std::nullopt;
      time = time * unit + *part;
    }
    return negative ? -time : time;
  }

  std::optional<Color> TakeColor() {
    const auto value = Take<std::uint32_t>(16);
    if (!value) return std::nullopt;
    return Color{static_cast<std::uint8_t>(*value >> 16), static_cast<std::uint8_t>(*value >> 8),
                 static_cast<std::uint8_t>(*value)};
  }

  // Returns how many of `colors` were in the line.
  template <std::size_t Size>
  std::size_t TakeColors(std::array<Color, Size>& colors) {
    std::size_t count = 0;
    while (count < Size) {
      const auto color = TakeColor();
      if (!color) break;
      colors[count++] = *color;
      Take(",");
    }
    return count;
  }

 private:
  void Drop(std::size_t count) { rest_ = Trim(rest_.substr(count)); }

  std::string_view rest_;
};

class IndexParser {
 public:
  explicit IndexParser(const std::string& path) : path_(path) {}

  Result<void> Line(std::string_view line) {
    line = Trim(line);
    const auto colon = line.find(':');
    if (line.starts_with('#') || colon == line.npos) return {};
    const std::string key = LowerAscii(Trim(line.substr(0, colon)));
    LineReader value(line.substr(colon + 1));
    if (key == "timestamp") return Timestamp(value);
    if (key == "id") {
      Id(value);
    } else if (key == "delay") {
      // A delay applies from its line on and adds to the delays before it.
      if (const auto delay = value.TakeTime()) delay_ += *delay;
    } else {
      Setting(key, value);
    }
    return {};
  }

  Result<VobSubIndex> Finish() {
    if (index_.languages.empty()) return Failure(ErrorKind::Damaged, path_ + ": is not a VobSub index");
    return std::move(index_);
  }

 private:
  // `time offset` is ignored on purpose: players ignore it too and use the timestamps alone.
  void Setting(const std::string& key, LineReader& value) {
    if (key == "size") return Size(value);
    if (key == "org") return Origin(value);
    if (key == "palette") {
      std::array<Color, 16> palette{};
      if (value.TakeColors(palette) > 0) index_.palette = palette;
    } else if (key == "custom colors") {
      CustomColors(value);
    } else if (key == "forced subs") {
      index_.forced_only = value.TakeWord("on");
    } else if (key == "langidx") {
      index_.language_in_use = value.Take<int>().value_or(0);
    }
  }

  void Size(LineReader& value) {
    const auto width = value.Take<int>();
    const bool cross = value.Take("xX");
    const auto height = value.Take<int>();
    const auto usable = [](std::optional<int> side) { return side && *side >= 2 && *side <= kLongestSide; };
    if (cross && usable(width) && usable(height)) index_.frame = {.width = *width, .height = *height};
  }

  void Origin(LineReader& value) {
    const auto left = value.Take<int>();
    value.Take(",");
    const auto top = value.Take<int>();
    const auto usable = [](std::optional<int> shift) {
      return shift && *shift >= -kLongestSide && *shift <= kLongestSide;
    };
    if (!usable(left) || !usable(top)) return;
    index_.left_shift = *left;
    index_.top_shift = *top;
  }

  // ON, tridx: 1000, colors: 000000, ffffff, 808080, 404040
  void CustomColors(LineReader& value) {
    index_.custom_colors.reset();
    if (!value.TakeWord("on") || !value.Take(",") || !value.TakeWord("tridx") || !value.Take(":")) return;
    VobSubCustomColors custom;
    for (bool& transparent : custom.transparent) {
      transparent = value.Take("1");
      if (!transparent && !value.Take("0")) return;
    }
    if (!value.Take(",") || !value.TakeWord("colors") || !value.Take(":")) return;
    if (value.TakeColors(custom.colors) == custom.colors.size()) index_.custom_colors = custom;
  }

  void Id(LineReader& value) {
    const auto comma = value.Rest().find(',');
    int substream = static_cast<int>(index_.languages.size());
    if (comma != value.Rest().npos) {
      LineReader rest(value.Rest().substr(comma + 1));
      if (rest.TakeWord("index") && rest.Take(":")) substream = rest.Take<int>().value_or(substream);
    }
    Begin(substream);
  }

  // A language that appears a second time is continued.
  void Begin(int substream) {
    delay_ = 0;
    language_.reset();
    if (substream < 0 || substream >= static_cast<int>(VobSubIndex::kMostLanguages)) return;
    const auto same = std::ranges::find(index_.languages, substream, &VobSubLanguage::substream);
    language_ = static_cast<std::size_t>(same - index_.languages.begin());
    if (same == index_.languages.end()) index_.languages.push_back({.substream = substream, .cues = {}});
  }

  Result<void> Timestamp(LineReader& value) {
    const auto time = value.TakeTime();
    if (!time || !value.Take(",") || !value.TakeWord("filepos") || !value.Take(":")) return {};
    const auto position = value.Take<std::uint64_t>(16);
    if (!position) return {};
    if (!language_ && index_.languages.empty()) Begin(0);
    if (!language_) return {};
    auto& cues = index_.languages[*language_].cues;
    if (cues.size() == VobSubIndex::kMostCues) {
      return Failure(ErrorKind::TooLarge, path_ + ": has more than " + std::to_string(VobSubIndex::kMostCues) +
                                              " subtitles in one language");
    }
    cues.push_back({.time = *time + delay_, .position = *position});
    return {};
  }

  const std::string& path_;
  VobSubIndex index_;
  std::optional<std::size_t> language_;  // whose lines are being read; empty if they are ignored
  std::int64_t delay_ = 0;
};

}  // namespace

const VobSubLanguage* VobSubIndex::Language() const {
  const auto usable = [](const VobSubLanguage& language) { return !language.cues.empty(); };
  for (const VobSubLanguage& language : languages) {
    if (language.substream == language_in_use && usable(language)) return &language;
  }
  const auto first = std::ranges::find_if(languages, usable);
  return first == languages.end() ? nullptr : &*first;
}

Result<VobSubIndex> ParseVobSubIndex(std::string_view text, const std::string& path) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  IndexParser parser(path);
  while (!text.empty()) {
    const auto end = text.find_first_of("\r\n");
    if (auto read = parser.Line(text.substr(0, end)); !read) return tl::unexpected(read.error());
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
  }
  return parser.Finish();
}

Result<VobSubIndex> ReadVobSubIndex(const std::string& path) {
  const auto text = ReadWholeFile(path, VobSubIndex::kMostBytes);
  if (!text) return tl::unexpected(text.error());
  return ParseVobSubIndex(*text, path);
}

}  // namespace captoria
