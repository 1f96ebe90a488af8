// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/list_parser.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/ascii.h"
#include "base/video_system.h"

namespace captoria {
namespace {

constexpr std::size_t kMostCues = 200'000;
constexpr std::size_t kLongestName = 255;
constexpr int kLargestNumber = 16384;  // for positions and sizes; far beyond any frame

// Reads a line from its beginning. Each step returns whether it found what it looked for.
class LineScanner {
 public:
  explicit LineScanner(std::string_view line) : left_(line) {}

  bool AtEnd() const { return left_.empty(); }

  bool Literal(std::string_view text) {
    if (!left_.starts_with(text)) return false;
    left_.remove_prefix(text.size());
    return true;
  }

  bool Blanks() {
    const std::size_t count = std::min(left_.find_first_not_of(' '), left_.size());
    left_.remove_prefix(count);
    return count > 0;
  }

  bool Number(int largest, int& value) {
    constexpr std::size_t kMostDigits = 5;
    std::size_t digits = 0;
    for (value = 0; digits < left_.size() && digits < kMostDigits && IsDigit(left_[digits]); ++digits) {
      value = 10 * value + (left_[digits] - '0');
    }
    left_.remove_prefix(digits);
    return digits > 0 && value <= largest;
  }

  // The text up to the next blank or the end.
  std::string_view Word() {
    const std::string_view word = left_.substr(0, left_.find(' '));
    left_.remove_prefix(word.size());
    return word;
  }

 private:
  std::string_view left_;
};

// Whether `name` is a plain file name and so stays in the list's own folder.
bool IsPlainName(std::string_view name) {
  const auto forbidden = [](char c) { return c == '/' || c == '\\' || c == ':' || IsControl(c); };
  return !name.empty() && name.size() <= kLongestName && name != "." && name.find("..") == name.npos &&
         std::ranges::none_of(name, forbidden);
}

// Each function reads its lines and returns whether they were right. The first wrong line sets the error.
class ListParser {
 public:
  ListParser(std::string_view text, const std::string& path) : left_(text) { list_.path = path; }

  Result<SubtitleList> Converter() {
    const bool fine = Expect("[HEADER]") && Expect("TITLE") && FrameRate() && Expect("DROPFRAME NO") && Contrast() &&
                      Order("COLOR") && Expect("") && Expect("[PALETTE]") && Palette(" (") && Expect("") &&
                      Expect("[LIST]") && Cues(&ListParser::ConverterCue);
    return Finish(fine);
  }

  Result<SubtitleList> Mux() {
    list_.frame = {640, HeightOf(VideoSystem::Ntsc)};
    const bool fine = Palette(" = (") && Expect("") && Order("SUBPALETTE") && Cues(&ListParser::MuxCue);
    return Finish(fine);
  }

 private:
  Result<SubtitleList> Finish(bool fine) {
    if (!fine) return tl::unexpected(std::move(error_));
    return std::move(list_);
  }

  bool Next() {
    if (left_.empty()) return false;
    const auto end = left_.find('\n');
    line_ = left_.substr(0, end);
    left_.remove_prefix(end == left_.npos ? left_.size() : end + 1);
    if (line_.ends_with('\r')) line_.remove_suffix(1);
    ++number_;
    return true;
  }

  bool Fail(const std::string& how) {
    error_.message = list_.path + ": line " + std::to_string(number_) + ": " + how;
    return false;
  }

  bool NextOf(const std::string& form) {
    if (Next()) return true;
    ++number_;
    return Fail("the list ends where " + form + " is expected");
  }

  bool Expect(const std::string& text) {
    const std::string form = text.empty() ? "an empty line" : "\"" + text + "\"";
    return NextOf(form) && (line_ == text || Fail(form + " is expected"));
  }

  bool FrameRate() {
    const auto line_of = [](VideoSystem system) { return "FRAMERATE " + std::string{NameOf(system)}; };
    const std::string pal = line_of(VideoSystem::Pal), ntsc = line_of(VideoSystem::Ntsc);
    const std::string form = "\"" + pal + "\" or \"" + ntsc + "\"";
    if (!NextOf(form)) return false;
    if (line_ != pal && line_ != ntsc) return Fail(form + " is expected");
    list_.frame = {720, HeightOf(line_ == pal ? VideoSystem::Pal : VideoSystem::Ntsc)};
    return true;
  }

  // A line as "CONTRAST    (0 15 15 15)".
  bool FourNumbers(const std::string& key, std::array<int, 4>& numbers) {
    const std::string form = "\"" + key + " (...)\" with four numbers from 0 to 15";
    if (!NextOf(form)) return false;
    LineScanner line(line_);
    bool fine = line.Literal(key) && line.Blanks() && line.Literal("(");
    for (std::size_t i = 0; fine && i < numbers.size(); ++i) {
      fine = line.Number(15, numbers[i]) && line.Literal(i + 1 < numbers.size() ? " " : ")");
    }
    return (fine && line.AtEnd()) || Fail(form + " is expected");
  }

  bool Contrast() {
    std::array<int, 4> contrast{};
    if (!FourNumbers("CONTRAST", contrast)) return false;
    for (std::size_t i = 1; i < contrast.size(); ++i) list_.shown[i] = contrast[i] != 0;
    if (contrast[0] != 0) {
      list_.findings.push_back({.kind = FindingKind::SubtitleChanged,
                                .file = list_.path,
                                .line = number_,
                                .message = "entry 0 is never shown, whatever its contrast"});
    }
    return true;
  }

  bool Order(const std::string& key) {
    std::array<int, 4> unused{};
    return FourNumbers(key, unused);
  }

  bool Palette(std::string_view opening) {
    for (int entry = 0; entry < 4; ++entry) {
      const std::string start = std::to_string(entry).append(opening);
      const std::string form = "\"" + start + "R, G, B)\" with numbers from 0 to 255";
      if (!NextOf(form)) return false;
      LineScanner line(line_);
      int unused = 0;
      const bool fine = line.Literal(start) && line.Number(255, unused) && line.Literal(", ") &&
                        line.Number(255, unused) && line.Literal(", ") && line.Number(255, unused) &&
                        line.Literal(")") && line.AtEnd();
      if (!fine) return Fail(form + " is expected");
    }
    return true;
  }

  // Empty lines are allowed only at the end.
  bool Cues(bool (ListParser::*read)(LineScanner&, ListedCue&)) {
    bool ended = false;
    while (Next()) {
      if (line_.empty()) {
        ended = true;
        continue;
      }
      if (ended) return Fail("a cue follows an empty line");
      if (list_.cues.size() == kMostCues) return Fail("there are more than " + std::to_string(kMostCues) + " cues");
      ListedCue cue;
      LineScanner line(line_);
      if (!(this->*read)(line, cue) || !Check(cue)) return false;
      list_.cues.push_back(std::move(cue));
    }
    return true;
  }

  bool Times(LineScanner& line, XsubTimes& times) {
    const auto show = ReadXsubTime(line.Word());
    if (!show || !line.Literal(" ")) return Fail("the start time is not of the form 00:00:00.000");
    const auto hide = ReadXsubTime(line.Word());
    if (!hide || !line.Literal(" ")) return Fail("the end time is not of the form 00:00:00.000");
    times = {*show, *hide};
    return true;
  }

  bool ConverterCue(LineScanner& line, ListedCue& cue) {
    cue.file = line.Word();
    if (!line.Literal(" ")) return Fail("a cue is expected: file, start, end, width, height, x and y");
    if (!Times(line, cue.times)) return false;
    const bool fine = line.Number(kLargestNumber, cue.width) && line.Literal(" ") &&
                      line.Number(kLargestNumber, cue.height) && line.Literal(" ") &&
                      line.Number(kLargestNumber, cue.x) && line.Literal(" ") && line.Number(kLargestNumber, cue.y) &&
                      line.AtEnd();
    return fine || Fail("width, height, x and y are expected after the times");
  }

  bool MuxCue(LineScanner& line, ListedCue& cue) {
    if (!Times(line, cue.times)) return false;
    cue.file = line.Word();
    int right = 0, bottom = 0;
    const bool fine = line.Literal(" (") && line.Number(kLargestNumber, cue.x) && line.Literal(" ") &&
                      line.Number(kLargestNumber, cue.y) && line.Literal(" ") && line.Number(kLargestNumber, right) &&
                      line.Literal(" ") && line.Number(kLargestNumber, bottom) && line.Literal(")") && line.AtEnd();
    if (!fine) return Fail("\"(left top right bottom)\" is expected after the times and the file");
    cue.width = right - cue.x + 1;
    cue.height = bottom - cue.y + 1;
    return true;
  }

  bool Check(const ListedCue& cue) {
    if (!IsPlainName(cue.file)) return Fail("the name of the bitmap is not a plain file name");
    if (cue.width < 1 || cue.height < 1) return Fail("the rectangle is empty");
    if (cue.x + cue.width > list_.frame.width) {
      return Fail("the rectangle reaches beyond the " + std::to_string(list_.frame.width) + " columns of the frame");
    }
    if (cue.times.show >= kLatestXsubTime) return Fail("the cue starts too late for a subtitle stream");
    return true;
  }

  std::string_view left_;
  std::string_view line_;
  std::size_t number_ = 0;
  SubtitleList list_;
  Error error_{ErrorKind::Damaged, {}};
};

}  // namespace

Result<SubtitleList> ParseConverterList(std::string_view text, const std::string& path) {
  return ListParser(text, path).Converter();
}

Result<SubtitleList> ParseMuxList(std::string_view text, const std::string& path) {
  return ListParser(text, path).Mux();
}

}  // namespace captoria
