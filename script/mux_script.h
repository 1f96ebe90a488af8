// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes the mux script "divxmux.bat" and reads it as a list of steps:
//
//     C:
//     cd "C:\Captoria\tmp"
//     bmptoxsub.exe linkerfile0.txt aXsub0.xsub PALMODE1
//     divxmux.exe -v (Video) "D:\m\movie.avi" -s (Subtitle - en;02) aXsub0.xsub -o "D:\m\movie.divx"
//     pause
//
// There are no variables, no redirections and only one command a line. Blanks separate words, except between quotation
// marks, which are dropped. So a title in parentheses is read as several words, which the tool joins.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "script/divxmux_arguments.h"

namespace captoria {

struct MuxScriptStep {
  enum class Kind {
    ChangeDrive,   // words: "C:", or the first two characters of a folder on systems without drives
    ChangeFolder,  // words: the folder
    RunTool,       // words: the tool's name without a folder, and its arguments
    Pause,         // no words
  };

  Kind kind;
  std::size_t line;  // counted from 1
  std::vector<std::string> words;

  bool operator==(const MuxScriptStep&) const = default;
};

// Lines end with CR LF or LF; empty lines are skipped. Damaged, naming the line, if a line has none of the forms above
// or contains a zero byte, a CR that ends no line or an unclosed quotation mark. TooLarge above 10,000 lines.
Result<std::vector<MuxScriptStep>> ParseMuxScript(std::string_view text);

// The same for a file of at most 1 MiB; errors begin with `path`.
Result<std::vector<MuxScriptStep>> ReadMuxScript(const std::string& path);

// A call of the bitmap converter, with names of files in the script's folder.
struct ConverterCall {
  std::string list;
  std::string xsub;
  bool pal_mode1 = false;
};

struct MuxScriptText {
  std::string program_folder;  // the script begins with its drive
  std::string temp_folder;     // where the tools run
  std::vector<ConverterCall> converters;
  DivxMuxArguments mux;
  bool pause = false;  // at the end
};

// The text of a script. CanBeQuoted is true for every path in it.
std::string ComposeMuxScript(const MuxScriptText& script);

// Whether `path` can stand between quotation marks: it contains no quotation mark, line end or zero byte.
bool CanBeQuoted(std::string_view path);

}  // namespace captoria
