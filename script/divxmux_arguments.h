// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The command line of DivXMux:
//
//   -v (TITLE) VIDEO [-a #N (TITLE) VIDEO] [-s #N (TITLE) VIDEO] [-s (TITLE) SOURCE]... -o OUT
//
// A title stands in parentheses. It is one argument, or several where whoever started the program took the command
// apart at its blanks.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/result.h"

namespace captoria {

struct DivxMuxStream {
  enum class Kind { Video, Audio, Subtitle, NewSubtitle };
  Kind kind = Kind::Video;
  int number = 1;     // among the streams of its kind in the video, from 1; of no meaning for new subtitles
  std::string title;  // without the parentheses; may be empty
  std::string path;   // of the video, or where the new subtitles are

  bool operator==(const DivxMuxStream&) const = default;
};

struct DivxMuxArguments {
  bool help = false;     // nothing else counts then
  bool version = false;  // the same
  bool hardware_profile = false;
  std::vector<DivxMuxStream> streams;  // in the order of the command; just one is the video
  std::string output;

  const DivxMuxStream& Video() const;
  bool operator==(const DivxMuxArguments&) const = default;
};

// `arguments` come without the program's name. `environment_profile` counts where no --profile is given. An error says
// what is wrong or missing.
Result<DivxMuxArguments> ParseDivxMuxArguments(std::span<const std::string> arguments,
                                               const std::string& environment_profile = {});

// The command as it stands in a script, "divxmux.exe -v (Video) "D:\m\movie.avi" ...": what ParseDivxMuxArguments
// reads as `arguments` once the script's reader has taken it apart, except that runs of blanks in a title come out as
// one. Paths stand in quotation marks unless they name new subtitles in the script's own folder. Neither paths nor
// titles may hold a quotation mark or a line end.
std::string ComposeDivxMuxCommand(const DivxMuxArguments& arguments);

}  // namespace captoria
