// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/tool_log.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "base/ascii.h"
#include "platform/input_file.h"

namespace captoria {
namespace {

constexpr std::string_view kEscape = "\\x";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string_view NameOf(Severity severity) { return severity == Severity::Note ? "note" : "warning"; }

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsControl(text[i]) && !text.substr(i).starts_with(kEscape)) {
      escaped += text[i];
      continue;
    }
    const auto byte = static_cast<unsigned char>(text[i]);
    escaped.append(kEscape) += kHexDigits[byte / 16];
    escaped += kHexDigits[byte % 16];
  }
  return escaped;
}

std::string Unescaped(std::string_view escaped) {
  std::string text;
  while (!escaped.empty()) {
    std::size_t taken = 1;
    text += escaped.front();
    if (escaped.size() >= kEscape.size() + 2 && escaped.starts_with(kEscape)) {
      const auto high = kHexDigits.find(escaped[kEscape.size()]), low = kHexDigits.find(escaped[kEscape.size() + 1]);
      if (high != kHexDigits.npos && low != kHexDigits.npos) {
        text.back() = static_cast<char>(high * 16 + low);
        taken = kEscape.size() + 2;
      }
    }
    escaped.remove_prefix(taken);
  }
  return text;
}

std::string Quoted(std::string_view text) {
  std::string quoted{'"'};
  for (const char c : Escaped(text)) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

bool Take(std::string_view& rest, std::string_view text) {
  if (!rest.starts_with(text)) return false;
  rest.remove_prefix(text.size());
  return true;
}

// The text before the next `end`, which is dropped.
std::optional<std::string_view> TakeBefore(std::string_view& rest, std::string_view end) {
  const auto at = rest.find(end);
  if (at == rest.npos) return std::nullopt;
  const std::string_view before = rest.substr(0, at);
  rest.remove_prefix(at + end.size());
  return before;
}

// The text up to the closing quotation mark; the opening one has been taken.
std::string TakeQuoted(std::string_view& rest) {
  std::string text;
  while (const auto before = TakeBefore(rest, "\"")) {
    text.append(*before);
    if (!Take(rest, "\"")) break;
    text += '"';
  }
  return Unescaped(text);
}

bool IsToolName(std::string_view name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) { return c == '-' || (c >= 'a' && c <= 'z'); });
}

// Writing the finding again shows whether the line had the exact form.
std::optional<Finding> ReadFinding(std::string_view line) {
  std::string_view rest = line;
  const auto tool = TakeBefore(rest, ": "), severity = TakeBefore(rest, " ["), name = TakeBefore(rest, "]");
  const auto kind = FindingKindOf(name.value_or(""));
  if (!tool || !IsToolName(*tool) || !severity || !kind) return std::nullopt;
  Finding finding{.kind = *kind, .severity = *severity == NameOf(Severity::Note) ? Severity::Note : Severity::Warning};
  if (Take(rest, " \"")) finding.file = TakeQuoted(rest);
  if (Take(rest, ", line ")) {
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), finding.line);
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  }
  if (!Take(rest, ": ")) return std::nullopt;
  finding.message = Unescaped(rest);
  if (ToolLine(*tool, finding) != line) return std::nullopt;
  return finding;
}

void ReadLine(std::string_view line, ToolLog& log) {
  // A tool that shows a counter leaves its old values before the last carriage return.
  while (line.ends_with('\r')) line.remove_suffix(1);
  line.remove_prefix(line.rfind('\r') + 1);
  if (Trim(line).empty()) return;
  if (auto finding = ReadFinding(line)) {
    log.findings.push_back(std::move(*finding));
  } else {
    log.last_lines.emplace_back(line);
  }
}

}  // namespace

std::string ToolLine(std::string_view tool, const Finding& finding) {
  std::string line = std::string{tool} + ": ";
  line.append(NameOf(finding.severity)).append(" [").append(NameOf(finding.kind)).append("]");
  if (!finding.file.empty()) {
    line += " " + Quoted(finding.file);
    if (finding.line > 0) line += ", line " + std::to_string(finding.line);
  }
  return line + ": " + Escaped(finding.message);
}

std::string ToolLine(std::string_view tool, std::string_view message) {
  return std::string{tool} + ": " + Escaped(message);
}

ToolLog ReadToolLog(const std::string& path) {
  constexpr std::uint64_t kLooked = 64 << 10;
  constexpr std::size_t kLastLines = 10;
  ToolLog log;
  const auto file = InputFile::Open(path);
  if (!file) return log;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min(kLooked, file->Size())));
  const std::uint64_t start = file->Size() - bytes.size();
  const auto got = file->ReadAt(start, bytes);
  if (!got) return log;
  const std::string text{bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*got)};
  // In a longer log the first line may have lost its beginning.
  for (std::size_t at = start == 0 ? 0 : text.find('\n') + 1; at < text.size();) {
    const auto end = std::min(text.find('\n', at), text.size());
    ReadLine(std::string_view{text}.substr(at, end - at), log);
    at = end + 1;
  }
  if (log.last_lines.size() > kLastLines) {
    log.last_lines.erase(log.last_lines.begin(), log.last_lines.end() - kLastLines);
  }
  return log;
}

}  // namespace captoria
