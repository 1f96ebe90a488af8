// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The command line of DivXMux:
//
//   -v (TITLE) VIDEO [-a #N (TITLE) VIDEO] [-s #N (TITLE) VIDEO] [-s (TITLE) SOURCE]... -o OUT
//
// A title stands in parentheses. It is one argument, or several if the program that started the tool split the command
// at blanks.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/result.h"

namespace captoria {

struct DivxMuxStream {
  enum class Kind { Video, Audio, Subtitle, NewSubtitle };
  Kind kind = Kind::Video;
  int number = 1;     // counts the streams of its kind in the video from 1; unused for new subtitles
  std::string title;  // without the parentheses; may be empty
  std::string path;   // of the video, or of the file with the new subtitles

  bool operator==(const DivxMuxStream&) const = default;
};

struct DivxMuxArguments {
  bool help = false;     // if set, nothing else counts
  bool version = false;  // the same
  bool hardware_profile = false;
  std::vector<DivxMuxStream> streams;  // in the order of the command; exactly one is the video
  std::string output;

  const DivxMuxStream& Video() const;
  bool operator==(const DivxMuxArguments&) const = default;
};

// `arguments` do not include the program's name. `environment_profile` is used if there is no --profile. The error says
// what is wrong or missing.
Result<DivxMuxArguments> ParseDivxMuxArguments(std::span<const std::string> arguments,
                                               const std::string& environment_profile = {});

// The command for a script: divxmux.exe -v (Video) "D:\m\movie.avi" ... Split into words by the script's reader,
// ParseDivxMuxArguments gives `arguments` again, except that several blanks in a row in a title become one. Paths are
// quoted, except names of new subtitles in the script's own folder. Neither paths nor titles may contain a quotation
// mark or a line end.
std::string ComposeDivxMuxCommand(const DivxMuxArguments& arguments);

}  // namespace captoria
