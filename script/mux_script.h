// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The mux script "divxmux.bat": what is written into it, and what is read from it as a list of steps.
//
//     C:
//     cd "C:\Captoria\tmp"
//     bmptoxsub.exe linkerfile0.txt aXsub0.xsub PALMODE1
//     divxmux.exe -v (Video) "D:\m\movie.avi" -s (Subtitle - en;02) aXsub0.xsub -o "D:\m\movie.divx"
//     pause
//
// Nothing else is understood: no variable, no redirection, no second command in a line. Outside quotation marks a line
// is words between blanks; what stands inside a pair is taken as it is, and the marks are dropped. So a title in
// parentheses comes out as several words, which the tool joins.
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
    ChangeDrive,   // words: "C:", or the first two characters of a folder where there are no drives
    ChangeFolder,  // words: the folder
    RunTool,       // words: the tool's name, which is no path, and its arguments
    Pause,         // no words
  };

  Kind kind;
  std::size_t line;  // counted from 1
  std::vector<std::string> words;

  bool operator==(const MuxScriptStep&) const = default;
};

// Lines end at CR LF or LF; those without a word are passed over. Damaged, naming the line, for a line that is none of
// the above or holds a zero byte, a lone CR or a quotation mark without its partner. TooLarge above 10,000 lines.
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
  std::string program_folder;  // of which the script gets the drive
  std::string temp_folder;     // where the tools run
  std::vector<ConverterCall> converters;
  DivxMuxArguments mux;
  bool pause = false;  // at the end
};

// The text of a script. Every path in it can be quoted.
std::string ComposeMuxScript(const MuxScriptText& script);

// Whether a script can carry `path` between quotation marks: it holds no such mark, line break or zero byte.
bool CanBeQuoted(std::string_view path);

}  // namespace captoria
