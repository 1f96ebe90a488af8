// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Something worth knowing that does not stop the work: what a film does not contain of what went in, and what had to be
// changed or guessed. Reading, drawing, muxing and the tools all add to one list; the caller shows it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace captoria {

// NameOf gives the names that programs see; they never change once released.
enum class FindingKind {
  ReadingStopped,    // a subtitle file has a fault; the cues after it are missing
  UndecodableBytes,  // bytes that mean nothing in the file's encoding, shown as U+FFFD
  OutsideSafeArea,   // cues larger than the safe viewing area
  MissingGlyph,      // characters that no installed font has
  CommandFault,      // a command file, or a line of it, that was not run
  StreamLeftOut,     // a stream of the source that the film does not contain
  DamagedVideo,      // the source is damaged; what could be read of it was copied
  DamagedSubtitle,   // a subtitle stream or list is damaged; what could be read of it was used
  SubtitleChanged,   // a picture, place or time that had to change to fit the format
  LargeFilm,         // the film is larger than many players read
  NotSaved,          // settings that could not be written
  ToolMessage,       // a tool's own words, of no other kind
};

enum class Severity {
  Note,     // the film contains everything; worth knowing all the same
  Warning,  // something is missing from the film or differs from its source
};

struct Finding {
  FindingKind kind{};
  std::string file{};     // the path it is about; may be empty
  std::size_t line = 0;   // counted from 1; 0 for the file as a whole
  std::string message{};  // a sentence without the file's name and without a full stop
  Severity severity = Severity::Warning;

  bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

// "reading-stopped", "undecodable-bytes" and so on: the names of FindingKind in lower case, words joined by "-".
std::string_view NameOf(FindingKind kind);

// The kind of that name.
std::optional<FindingKind> FindingKindOf(std::string_view name);

// A finding from the message of an error, which may begin with "FILE: ".
Finding FindingAbout(FindingKind kind, const std::string& file, std::string_view message);

// "film.srt, line 9: MESSAGE", "film.avi: MESSAGE" or the message alone.
std::string Describe(const Finding& finding);

}  // namespace captoria
