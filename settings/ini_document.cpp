// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "settings/ini_document.h"

#include <utility>

#include "base/ascii.h"

namespace captoria {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineBreaks = "\r\n";
constexpr std::string_view kNeverStored{"\r\n\0", 3};

std::size_t LineLength(std::string_view text) {
  const auto end = text.find_first_of(kLineBreaks);
  if (end == text.npos) return text.size();
  return end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
}

std::string_view LineEnd(std::string_view line) {
  const auto end = line.find_first_of(kLineBreaks);
  return end == line.npos ? std::string_view{} : line.substr(end);
}

std::string_view Content(std::string_view line) { return Trim(line.substr(0, line.find_first_of(kLineBreaks))); }

std::optional<std::string_view> HeaderName(std::string_view line) {
  const std::string_view content = Content(line);
  const auto close = content.find(']');
  if (!content.starts_with('[') || close == content.npos) return std::nullopt;
  return content.substr(1, close - 1);
}

bool BeginsLikeNoKey(std::string_view content) {
  return content.empty() || content.front() == '[' || content.front() == ';' || content.front() == '#';
}

// The key of a line; empty if it has none.
std::string_view KeyOf(std::string_view line) {
  const std::string_view content = Content(line);
  const auto equals = content.find('=');
  if (BeginsLikeNoKey(content) || equals == content.npos) return {};
  return Trim(content.substr(0, equals));
}

std::string_view ValueOf(std::string_view line) {
  const std::string_view content = Content(line);
  return Trim(content.substr(content.find('=') + 1));
}

bool CanBeStored(std::string_view text) { return text.find_first_of(kNeverStored) == text.npos; }

std::string KeyName(std::size_t section, std::string_view key) {
  return std::to_string(section) + '=' + LowerAscii(Trim(key));
}

}  // namespace

Result<IniDocument> IniDocument::Parse(std::string_view text) {
  if (const auto zero = text.find('\0'); zero != text.npos) {
    return Failure(ErrorKind::Damaged, "byte " + std::to_string(zero + 1) + " is zero, so this is not a text file");
  }
  IniDocument document;
  if (text.starts_with(kByteOrderMark)) {
    document.start_ = kByteOrderMark;
    text.remove_prefix(kByteOrderMark.size());
  }
  while (!text.empty()) {
    const std::string_view line = text.substr(0, LineLength(text));
    document.AppendLine(line);
    text.remove_prefix(line.size());
  }
  return document;
}

void IniDocument::AppendLine(std::string_view line) {
  if (const auto end = LineEnd(line); !line_end_seen_ && !end.empty()) {
    line_end_ = end;
    line_end_seen_ = true;
  }
  if (const auto name = HeaderName(line)) {
    section_of_name_.try_emplace(LowerAscii(Trim(*name)), sections_.size());
    sections_.push_back({std::string{line}, {}, {}});
    return;
  }
  Section& section = sections_.back();
  if (Content(line).empty()) {
    section.blank_tail += line;
    return;
  }
  const std::string_view key = KeyOf(line);
  // Lines without a key are kept together: an entry for each would take several times the size of a file of millions.
  std::string other = std::exchange(section.blank_tail, {});
  if (key.empty()) other += line;
  if (!other.empty()) {
    if (section.lines.empty() || section.lines.back().holds_key) section.lines.push_back({{}, false});
    section.lines.back().text += other;
  }
  if (!key.empty()) AddKeyLine(sections_.size() - 1, key, std::string{line});
}

void IniDocument::AddKeyLine(std::size_t section, std::string_view key, std::string line) {
  auto& lines = sections_[section].lines;
  place_of_key_.try_emplace(KeyName(section, key), Place{section, lines.size()});
  lines.push_back({std::move(line), true});
}

std::optional<std::size_t> IniDocument::IndexOf(std::string_view section) const {
  const auto found = section_of_name_.find(LowerAscii(Trim(section)));
  if (found == section_of_name_.end()) return std::nullopt;
  return found->second;
}

std::optional<std::string_view> IniDocument::Find(std::string_view section, std::string_view key) const {
  const auto index = IndexOf(section);
  if (!index) return std::nullopt;
  const auto place = place_of_key_.find(KeyName(*index, key));
  if (place == place_of_key_.end()) return std::nullopt;
  return ValueOf(sections_[*index].lines[place->second.line].text);
}

bool IniDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
  section = Trim(section);
  key = Trim(key);
  if (section.empty() || section.find(']') != section.npos || !CanBeStored(section)) return false;
  if (BeginsLikeNoKey(key) || key.find('=') != key.npos || !CanBeStored(key) || !CanBeStored(value)) return false;

  const auto known = IndexOf(section);
  const std::size_t index = known ? *known : AddSection(section);
  if (const auto place = place_of_key_.find(KeyName(index, key)); place != place_of_key_.end()) {
    std::string& line = sections_[index].lines[place->second.line].text;
    if (ValueOf(line) == Trim(value)) return true;  // keep the blanks that somebody put around it
    std::string changed{KeyOf(line)};
    changed.append("=").append(value).append(LineEnd(line));
    line = std::move(changed);
    return true;
  }
  Section& home = sections_[index];
  EndLine(home.lines.empty() ? home.header : home.lines.back().text);
  std::string line{key};
  line.append("=").append(value).append(line_end_);
  AddKeyLine(index, key, std::move(line));
  return true;
}

std::size_t IniDocument::AddSection(std::string_view name) {
  Section& last = sections_.back();
  if (!last.blank_tail.empty()) {
    EndLine(last.blank_tail);
  } else {
    EndLine(last.lines.empty() ? last.header : last.lines.back().text);
  }
  std::string header{"["};
  header.append(name).append("]").append(line_end_);
  AppendLine(header);
  return sections_.size() - 1;
}

// Only the last line of a file can lack a line end.
void IniDocument::EndLine(std::string& text) const {
  if (!text.empty() && kLineBreaks.find(text.back()) == kLineBreaks.npos) text += line_end_;
}

void IniDocument::Erase(std::string_view section, std::string_view key) {
  const auto index = IndexOf(section);
  if (!index || place_of_key_.erase(KeyName(*index, key)) == 0) return;
  for (Line& line : sections_[*index].lines) {
    if (line.holds_key && EqualsIgnoringCase(KeyOf(line.text), Trim(key))) line = {{}, false};
  }
}

void IniDocument::EraseKeys(std::string_view section) {
  const auto index = IndexOf(section);
  if (!index) return;
  for (Line& line : sections_[*index].lines) {
    if (!line.holds_key) continue;
    place_of_key_.erase(KeyName(*index, KeyOf(line.text)));
    line = {{}, false};
  }
}

std::vector<IniEntry> IniDocument::Entries(std::string_view section) const {
  std::vector<IniEntry> entries;
  if (const auto index = IndexOf(section)) {
    for (const Line& line : sections_[*index].lines) {
      if (line.holds_key) entries.push_back({std::string{KeyOf(line.text)}, std::string{ValueOf(line.text)}});
    }
  }
  return entries;
}

std::vector<std::string> IniDocument::Sections() const {
  std::vector<std::string> names;
  for (const Section& section : sections_) {
    if (const auto name = HeaderName(section.header)) names.emplace_back(*name);
  }
  return names;
}

std::string IniDocument::Text() const {
  std::string text = start_;
  for (const Section& section : sections_) {
    text += section.header;
    for (const Line& line : section.lines) text += line.text;
    text += section.blank_tail;
  }
  return text;
}

}  // namespace captoria
