// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Command files (*.cbx) say what to do with the cues of every newly loaded file. They are text files with one command
// per line, run in order:
//
//   # Dashes to the left
//   Select 2, "-"A, ""
//   PosAlignment 35, l
//
// A keyword begins its line, in any case, and exactly one blank follows it. Lines without a keyword, such as the
// comment, are ignored.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "automation/cue_selection.h"
#include "base/result.h"

namespace captoria {

// Replaces the own placement of the selected cues (settings/placement.h). A value that the command does not set is
// removed.
struct PlacementCommand {
  int position = 0;       // whole pixels above the bottom of the frame, not checked against its height
  std::string alignment;  // "l", "c" or "r"; any other text is passed on as it is
  bool toChangePos = false;
  bool toChangeAl = false;

  bool operator==(const PlacementCommand&) const = default;
};

using Command = std::variant<SelectRule, PlacementCommand>;

// The command in a line without its line end; nothing if the line has no command. Damaged, with a message that names no
// line, if a comma between the fields is missing.
//
// A field that is not a number is 0, and "7x" is 7. The first and the last character of a text count as its quotation
// marks, whatever they are. A start text ends at the first comma.
std::optional<Result<Command>> ParseCommand(std::string_view line);

// The line of a command: `Select 2, "-"A, ""`, `PosAlignment 35, c`. ParseCommand reads the same command back if the
// start text has no comma, no text has a line break, and the alignment is not empty and neither begins nor ends with a
// blank.
std::string ComposeCommand(const SelectRule& rule);
std::string ComposeCommand(const PlacementCommand& command);

struct CommandFileLine {
  std::size_t number = 0;  // in the file, from 1, counting every line
  Result<Command> command;
};

// The commands in the text of a whole file. Lines end at CR LF, CR or LF.
std::vector<CommandFileLine> ParseCommands(std::string_view text);

// Room for more than a thousand commands. A larger file is not a command file.
inline constexpr std::size_t kLargestCommandFile = std::size_t{64} << 10;

// Reads a command file in any encoding. `charset` is that of a font (base/text_encoding.h) and gives the code page of a
// file that is not Unicode. Errors: the file cannot be read, or is TooLarge.
Result<std::vector<CommandFileLine>> ReadCommandFile(const std::string& path, int charset = 1);

// A command file in an editor.
struct CommandFileText {
  std::string comment;
  std::vector<std::string> lines;  // all other lines that are not blank, unchanged
};

// Reads a command file for an editor. If it has several comments, gives the last one.
Result<CommandFileText> ReadCommandFileText(const std::string& path, int charset = 1);

// Replaces the file at `path`: UTF-8, with the comment as the first line even if it is empty. If that fails, the old
// file stays. A line break inside the comment or a line becomes a blank.
Result<void> WriteCommandFile(const std::string& path, std::string_view comment, std::span<const std::string> lines);

}  // namespace captoria
