// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// One open subtitle file: a tab of the window, and a subtitle stream of the film made from it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "settings/track_style.h"
#include "subtitles/cue.h"
#include "subtitles/srt_reader.h"
#include "subtitles/subtitle_file.h"

namespace captoria {

// How the file was read.
struct CueSource {
  std::string encoding;
  std::size_t undecodable = 0;
  std::optional<SrtProblem> problem;
};

// A row of the list that shows only the cues outside the safe viewing area. The cue itself is in the list of all cues;
// each list has a selection of its own.
struct OutsideRow {
  std::size_t row = 0;  // index into the track's cues
  bool Selected = false;
};

struct SubtitleTrack {
  std::string path;                 // empty while no file was loaded
  std::vector<SubtitleCue> cues;    // all, in file order
  std::vector<OutsideRow> outside;  // in ascending order
  CueSource source;
  TrackStyle style;
  Font list_font;  // of both lists

  bool HasFile() const { return !path.empty(); }
  bool IsIdx() const { return IsIdxFile(path); }
  bool IsRendered() const { return HasFile() && !IsIdx(); }  // a VobSub file already contains pictures
};

}  // namespace captoria
