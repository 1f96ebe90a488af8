// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/unattended.h"

#include "app/open_video.h"
#include "base/ascii.h"

namespace captoria {
namespace {

constexpr std::string_view kSwitch = "/auto";

std::size_t FindSwitch(std::string_view text, std::size_t from = 0) { return LowerAscii(text).find(kSwitch, from); }

// If slashes separate folders, one may be named "Autos", so the switch has to be a word of its own.
bool HoldsNoOtherSlash(std::string_view text) {
  for (auto at = text.find('/'); at != text.npos; at = text.find('/', at + 1)) {
    if (FindSwitch(text, at) != at) return false;
  }
  return true;
}

}  // namespace

CommandLine ParseCommandLine(std::string_view arguments) {
  CommandLine line;
  std::string rest;
  for (std::string_view left = Trim(arguments); !left.empty(); left = Trim(left)) {
    const std::string_view word = left.substr(0, left.find(' '));
    left.remove_prefix(word.size());
    if (EqualsIgnoringCase(word, kSwitch)) {
      line.unattended = true;
      continue;
    }
    rest += word;
    while (left.starts_with(' ')) {
      rest += ' ';
      left.remove_prefix(1);
    }
  }
  if (!(line.unattended && rest.starts_with('/')) && HoldsNoOtherSlash(rest)) {
    for (auto at = FindSwitch(rest); at != rest.npos; at = FindSwitch(rest)) {
      line.unattended = true;
      rest.erase(at, kSwitch.size());
    }
  }
  const std::string_view path = Trim(rest);
  const bool quoted = path.size() >= 2 && path.front() == '"' && path.back() == '"';
  line.path = quoted ? path.substr(1, path.size() - 2) : path;
  return line;
}

Outcome RunUnattended(Workspace& workspace, const ConversionBackend& backend, const std::string& path) {
  workspace.project.current_file = path;
  std::string video = path;
  Outcome outcome{.film = Failure(ErrorKind::NotFound, "Can not find any subtitles")};
  if (auto opened = OpenAnAviFile(workspace, video, {}); !opened) {
    outcome.film = tl::unexpected(opened.error());
  } else if (!HasSubtitles(workspace.project)) {
    workspace.prompts.ShowMessage(kProgramTitle, outcome.film.error().message);
  } else {
    outcome = MakeFinalDivX(workspace, backend);
  }
  if (const auto saved = SaveAll(workspace.preferences, workspace.project); !saved) {
    workspace.reporter.Tell({.kind = FindingKind::NotSaved, .message = saved.error().message});
  }
  return outcome;
}

}  // namespace captoria
