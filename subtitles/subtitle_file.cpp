// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "subtitles/subtitle_file.h"

#include <utility>

#include "base/ascii.h"
#include "base/text_encoding.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::uint64_t kLargestFile = std::uint64_t{512} << 20;
constexpr std::size_t kSampleSize = std::size_t{128} << 10;

// Appends `line` without its tags, "<...>" and "{...}".
void AppendWithoutTags(std::string_view line, std::string& sample) {
  while (!line.empty()) {
    const auto open = line.find_first_of("<{");
    sample += line.substr(0, open);
    if (open == line.npos) return;
    const auto close = line.find(line[open] == '<' ? '>' : '}', open);
    line.remove_prefix(close == line.npos ? line.size() : close + 1);
  }
}

std::string ChooseEncoding(std::string_view bytes, const EncodingChoice& choice) {
  if (!choice.forced.empty()) return choice.forced;
  if (auto unicode = UnicodeEncodingOf(bytes)) return *unicode;
  if (auto page = EncodingOfCharset(choice.charset)) return *page;
  return DetectEncoding(DialogueSample(bytes)).value_or("WINDOWS-1252");
}

}  // namespace

std::string DialogueSample(std::string_view bytes) {
  std::string sample;
  while (!bytes.empty() && sample.size() < kSampleSize) {
    const auto end = std::min(bytes.find_first_of(kLineBreak), kSampleSize);
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
    if (line.find("-->") != line.npos || std::ranges::all_of(line, [](char c) { return IsDigit(c) || IsBlank(c); })) {
      continue;
    }
    AppendWithoutTags(line, sample);
    sample += '\n';
  }
  return sample;
}

Result<SubtitleFile> ReadSubtitleFile(const std::string& path, const EncodingChoice& choice) {
  auto bytes = ReadWholeFile(path, kLargestFile);
  if (!bytes) return tl::unexpected(bytes.error());
  const std::string encoding = ChooseEncoding(*bytes, choice);
  const auto decoded = Decode(std::move(*bytes), encoding);
  if (!decoded) return tl::unexpected(decoded.error());
  return SubtitleFile{decoded->encoding, decoded->undecodable, ReadSrt(decoded->text)};
}

bool IsIdxFile(std::string_view path) { return EndsIgnoringCase(path, ".idx"); }

}  // namespace captoria
