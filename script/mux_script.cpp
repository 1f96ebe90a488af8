// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/mux_script.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/ascii.h"
#include "platform/files.h"

namespace captoria {
namespace {

using Kind = MuxScriptStep::Kind;

constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 20;
constexpr std::size_t kMostLines = 10'000;

bool IsContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// "C:" on any line. On systems without drives the first line contains the first two characters of a folder ("/h"),
// which cannot be the name of a tool.
bool IsDrive(std::string_view line, std::size_t number) {
  const auto letter = line.empty() ? '\0' : LowerAscii(line.front());
  if (line.size() == 2 && line[1] == ':' && letter >= 'a' && letter <= 'z') return true;
  const bool starts_folder = letter == '/' || letter == '\\';
  return number == 1 && starts_folder && line.size() <= 5 &&
         std::ranges::count_if(line, [](char c) { return !IsContinuationByte(c); }) <= 2;
}

// No value if a quotation mark is not closed.
std::optional<std::vector<std::string>> SplitWords(std::string_view line) {
  std::vector<std::string> words;
  bool in_word = false, quoted = false;
  for (const char c : line) {
    if (IsBlank(c) && !quoted) {
      in_word = false;
      continue;
    }
    if (!in_word) words.emplace_back();
    in_word = true;
    if (c == '"') {
      quoted = !quoted;
    } else {
      words.back() += c;
    }
  }
  if (quoted) return std::nullopt;
  return words;
}

bool IsToolName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find_first_of("/\\:") == name.npos;
}

tl::unexpected<Error> LineFailure(std::size_t number, const std::string& message) {
  return Failure(ErrorKind::Damaged, "line " + std::to_string(number) + ": " + message);
}

Result<MuxScriptStep> ReadLine(std::string_view line, std::size_t number) {
  if (line.find('\0') != line.npos) return LineFailure(number, "contains a zero byte");
  if (line.find('\r') != line.npos) return LineFailure(number, "contains a CR that ends no line");
  if (IsDrive(Trim(line), number)) {
    return MuxScriptStep{Kind::ChangeDrive, number, {std::string{Trim(line)}}};
  }
  auto words = SplitWords(line);
  if (!words) return LineFailure(number, "a quotation mark is not closed");
  if (EqualsIgnoringCase(words->front(), "cd")) {
    if (words->size() != 2 || words->back().empty()) return LineFailure(number, "cd needs one folder");
    return MuxScriptStep{Kind::ChangeFolder, number, {std::move(words->back())}};
  }
  if (EqualsIgnoringCase(words->front(), "pause")) {
    if (words->size() != 1) return LineFailure(number, "pause takes no arguments");
    return MuxScriptStep{Kind::Pause, number, {}};
  }
  if (!IsToolName(words->front())) return LineFailure(number, "\"" + words->front() + "\" is not the name of a tool");
  return MuxScriptStep{Kind::RunTool, number, std::move(*words)};
}

}  // namespace

Result<std::vector<MuxScriptStep>> ParseMuxScript(std::string_view text) {
  std::vector<MuxScriptStep> steps;
  for (std::size_t number = 1; !text.empty(); ++number) {
    if (number > kMostLines) {
      return Failure(ErrorKind::TooLarge, "has more than " + std::to_string(kMostLines) + " lines");
    }
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (Trim(line).empty()) continue;
    auto step = ReadLine(line, number);
    if (!step) return tl::unexpected(step.error());
    steps.push_back(std::move(*step));
  }
  return steps;
}

Result<std::vector<MuxScriptStep>> ReadMuxScript(const std::string& path) {
  const auto text = ReadWholeFile(path, kLargestFile);
  if (!text) return tl::unexpected(text.error());
  auto steps = ParseMuxScript(*text);
  if (!steps) return Failure(steps.error().kind, path + ": " + steps.error().message);
  return steps;
}

std::string ComposeMuxScript(const MuxScriptText& script) {
  std::vector<std::string> lines{script.program_folder.substr(0, 2), "cd \"" + script.temp_folder + "\""};
  for (const ConverterCall& call : script.converters) {
    lines.push_back("bmptoxsub.exe " + call.list + " " + call.xsub + (call.pal_mode1 ? " PALMODE1" : ""));
  }
  lines.push_back(ComposeDivxMuxCommand(script.mux));
  if (script.pause) lines.emplace_back("pause");
  std::string text;
  for (const std::string& line : lines) text.append(line).append(kCrLf);
  return text;
}

bool CanBeQuoted(std::string_view path) {
  constexpr std::string_view kBreakers{"\"\r\n\0", 4};
  return path.find_first_of(kBreakers) == path.npos;
}

}  // namespace captoria
