// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "automation/command_file.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "base/text_encoding.h"
#include "platform/files.h"
#include "settings/number_text.h"

namespace captoria {
namespace {

constexpr std::string_view kSelect = "Select ";
constexpr std::string_view kPosAlignment = "PosAlignment ";
constexpr std::string_view kComment = "# ";
constexpr std::string_view kLineBreaks = "\r\n";

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

// Without surrounding blanks. A tab does not count as a blank here, as a text may begin with one.
std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == text.npos ? std::string_view{} : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// Removes the first line of `text` with its line end, and returns it without.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find_first_of(kLineBreaks));
  text.remove_prefix(line.size());
  text.remove_prefix(text.starts_with(kLineBreaks) ? kLineBreaks.size() : text.empty() ? 0 : 1);
  return line;
}

// Removes the text up to the next comma and the comma, and returns the text trimmed; nothing if there is no comma.
std::optional<std::string_view> TakeField(std::string_view& text) {
  const auto comma = text.find(',');
  if (comma == text.npos) return std::nullopt;
  const std::string_view field = TrimBlanks(text.substr(0, comma));
  text.remove_prefix(comma + 1);
  return field;
}

int NumberIn(std::string_view field) { return RoundToInt(NumberOfText(field)); }

struct MarkedText {
  std::string text;
  bool for_all = false;
};

// The text between the quotation marks of a field. Any character counts as a mark.
MarkedText TextIn(std::string_view field) {
  MarkedText marked;
  marked.for_all = field.ends_with('a') || field.ends_with('A');
  if (marked.for_all) field.remove_suffix(1);
  if (!field.empty()) field.remove_suffix(LastCharacter(field).length);
  if (!field.empty()) field.remove_prefix(FirstCharacter(field).length);
  marked.text = field;
  return marked;
}

Result<Command> MissingComma() { return Failure(ErrorKind::Damaged, "a comma is missing between the fields"); }

Result<Command> ParseSelect(std::string_view fields) {
  const auto lines = TakeField(fields);
  const auto start = TakeField(fields);
  if (!lines || !start) return MissingComma();
  const auto [start_text, start_for_all] = TextIn(*start);
  const auto [end_text, end_for_all] = TextIn(TrimBlanks(fields));
  return SelectRule{NumberIn(*lines), start_text, start_for_all, end_text, end_for_all};
}

Result<Command> ParsePosAlignment(std::string_view fields) {
  const auto position = TakeField(fields);
  if (!position) return MissingComma();
  const std::string_view alignment = TrimBlanks(fields);
  return PlacementCommand{NumberIn(*position), std::string{alignment}, !position->empty(), !alignment.empty()};
}

std::string Marked(std::string_view text, bool for_all) {
  std::string marked = "\"";
  marked += text;
  marked += for_all ? "\"A" : "\"";
  return marked;
}

// The file as UTF-8.
Result<std::string> ReadText(const std::string& path, int charset) {
  auto bytes = ReadWholeFile(path, kLargestCommandFile);
  if (!bytes && bytes.error().kind == ErrorKind::TooLarge) {
    return Failure(ErrorKind::TooLarge,
                   path + ": has more than 64 KiB, so it is not a command file; choose another file");
  }
  if (!bytes) return bytes;
  auto encoding = UnicodeEncodingOf(*bytes);
  if (!encoding) encoding = EncodingOfCharset(charset);
  if (!encoding) encoding = DetectEncoding(*bytes);
  auto decoded = Decode(std::move(*bytes), encoding.value_or("WINDOWS-1252"));
  if (!decoded) return tl::unexpected(decoded.error());
  return std::move(decoded->text);
}

std::string AsOneLine(std::string_view text) {
  std::string line{text};
  std::ranges::replace_if(
      line, [](char c) { return kLineBreaks.find(c) != kLineBreaks.npos; }, ' ');
  return line;
}

}  // namespace

std::optional<Result<Command>> ParseCommand(std::string_view line) {
  if (StartsIgnoringCase(line, kSelect)) return ParseSelect(line.substr(kSelect.size()));
  if (StartsIgnoringCase(line, kPosAlignment)) return ParsePosAlignment(line.substr(kPosAlignment.size()));
  return std::nullopt;
}

std::string ComposeCommand(const SelectRule& rule) {
  std::string line{kSelect};
  if (rule.NumOfLines > 0) line += std::to_string(rule.NumOfLines);
  line += ", " + Marked(rule.txtToStart, rule.txtToStartForAll);
  line += ", " + Marked(rule.txtToEnd, rule.txtToEndForAll);
  return line;
}

std::string ComposeCommand(const PlacementCommand& command) {
  std::string line{kPosAlignment};
  if (command.toChangePos) line += std::to_string(command.position);
  line += ", ";
  if (command.toChangeAl) line += command.alignment;
  return line;
}

std::vector<CommandFileLine> ParseCommands(std::string_view text) {
  std::vector<CommandFileLine> lines;
  for (std::size_t number = 1; !text.empty(); ++number) {
    if (auto command = ParseCommand(TakeLine(text))) lines.push_back({number, std::move(*command)});
  }
  return lines;
}

Result<std::vector<CommandFileLine>> ReadCommandFile(const std::string& path, int charset) {
  const auto text = ReadText(path, charset);
  if (!text) return tl::unexpected(text.error());
  return ParseCommands(*text);
}

Result<CommandFileText> ReadCommandFileText(const std::string& path, int charset) {
  const auto text = ReadText(path, charset);
  if (!text) return tl::unexpected(text.error());
  CommandFileText file;
  for (std::string_view rest = *text; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    if (line.starts_with(kComment)) {
      file.comment = line.substr(kComment.size());
    } else if (!TrimBlanks(line).empty()) {
      file.lines.emplace_back(line);
    }
  }
  return file;
}

Result<void> WriteCommandFile(const std::string& path, std::string_view comment, std::span<const std::string> lines) {
  std::string content{kComment};
  content += AsOneLine(comment);
  content += kLineBreaks;
  for (const std::string& line : lines) {
    content += AsOneLine(line);
    content += kLineBreaks;
  }
  return WriteWholeFile(path, content);
}

}  // namespace captoria
