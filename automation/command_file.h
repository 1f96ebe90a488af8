// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Command files (*.cbx): what is done to the cues of every newly loaded file, written down once. A text file with a
// command a line, in order:
//
//   # Dashes to the left
//   Select 2, "-"A, ""
//   PosAlignment 35, l
//
// A keyword stands at the very start of its line, in any case, with exactly one blank behind it. A line without one,
// as the comment, says nothing.
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

// Gives the selected cues a placement of their own (settings/placement.h) in place of the one they have. What it does
// not give is taken away.
struct PlacementCommand {
  int position = 0;       // whole pixels above the bottom of the frame; not checked against its height
  std::string alignment;  // "l", "c" or "r"; any other text is passed on as it is
  bool toChangePos = false;
  bool toChangeAl = false;

  bool operator==(const PlacementCommand&) const = default;
};

using Command = std::variant<SelectRule, PlacementCommand>;

// The command of a line without its line end; nothing when the line holds none. Damaged, without a place, when the
// commas between the fields are missing.
//
// A field that is no number is 0 and one like "7x" is 7. The marks around a text are taken off whatever they are, and a
// start text ends at the first comma.
std::optional<Result<Command>> ParseCommand(std::string_view line);

// The line of a command: `Select 2, "-"A, ""`, `PosAlignment 35, c`. ParseCommand reads the same command from it, if a
// start text has no comma, no text a line break, and an alignment is not empty and neither begins nor ends in a blank.
std::string ComposeCommand(const SelectRule& rule);
std::string ComposeCommand(const PlacementCommand& command);

struct CommandFileLine {
  std::size_t number = 0;  // in the file, from 1, counting every line
  Result<Command> command;
};

// The commands of a whole file's text, with lines that end in CR LF, CR or LF.
std::vector<CommandFileLine> ParseCommands(std::string_view text);

// No file of ours is as large: it holds above a thousand commands.
inline constexpr std::size_t kLargestCommandFile = std::size_t{64} << 10;

// Reads a command file in any encoding; `charset` is that of a font (base/text_encoding.h), which names the code
// page of a file that is not Unicode. Errors: a file that cannot be read, or a TooLarge one.
Result<std::vector<CommandFileLine>> ReadCommandFile(const std::string& path, int charset = 1);

// A command file as people edit it.
struct CommandFileText {
  std::string comment;
  std::vector<std::string> lines;  // all others that are not blank, as the file has them
};

// The same file for an editor. Of several comments it has the last.
Result<CommandFileText> ReadCommandFileText(const std::string& path, int charset = 1);

// Writes UTF-8 with the comment as the first line, also when it is empty, in place of what `path` held; the old file
// stays whole when that fails. A line break inside of the comment or a line becomes a blank.
Result<void> WriteCommandFile(const std::string& path, std::string_view comment, std::span<const std::string> lines);

}  // namespace captoria
