// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An INI text, kept line by line as bytes. An edit changes one line and keeps everything else: comments, blank lines,
// order, spelling, line ends (CR LF, LF or CR, also mixed) and a UTF-8 byte-order mark.
//
// Names of sections and keys are compared without surrounding blanks and ignoring ASCII case. If a section occurs
// twice, or a key occurs twice in its section, the first one counts. A line that begins with ";" or "#" is a comment.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/result.h"

namespace captoria {

struct IniEntry {
  std::string key;
  std::string value;
};

class IniDocument {
 public:
  IniDocument() = default;

  // Damaged if `text` contains a zero byte: it is binary, UTF-16 or left over from a power cut. Any other text is
  // valid.
  static Result<IniDocument> Parse(std::string_view text);

  // The text after the first "=", without surrounding blanks. Valid until the document changes.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  // Replaces the line of the key, or adds one after the section's last line that is not blank, or adds the section at
  // the end. Returns false and changes nothing if a line cannot hold the texts: a line break or zero byte anywhere, an
  // empty name, "=" in a key, a key that begins with "[", ";" or "#", "]" in a section.
  bool Set(std::string_view section, std::string_view key, std::string_view value);

  // Removes every line of the key. A second line left behind would become its value.
  void Erase(std::string_view section, std::string_view key);

  // Removes the section's keys; its header, comments and blank lines stay.
  void EraseKeys(std::string_view section);

  // The section's keys in the order of the file, repeated ones included.
  std::vector<IniEntry> Entries(std::string_view section) const;

  // The names of all sections in the order of the file, repeated ones included.
  std::vector<std::string> Sections() const;

  std::string Text() const;

 private:
  // A line with a key, or several lines without one, with their line ends. Empty once erased.
  struct Line {
    std::string text;
    bool holds_key;
  };
  struct Section {
    std::string header;       // the whole line; empty for the lines before the first section
    std::vector<Line> lines;  // the last one is not blank
    std::string blank_tail;   // the blank lines after them
  };
  struct Place {
    std::size_t section;
    std::size_t line;
  };

  void AppendLine(std::string_view line);
  void AddKeyLine(std::size_t section, std::string_view key, std::string line);
  std::optional<std::size_t> IndexOf(std::string_view section) const;
  std::size_t AddSection(std::string_view name);
  void EndLine(std::string& text) const;

  std::string start_;             // the byte-order mark, if there is one
  std::string line_end_{"\r\n"};  // of new lines
  bool line_end_seen_ = false;
  std::vector<Section> sections_{1};
  std::unordered_map<std::string, std::size_t> section_of_name_;
  std::unordered_map<std::string, Place> place_of_key_;
};

}  // namespace captoria
