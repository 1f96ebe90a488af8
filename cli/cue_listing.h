// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A track's cues as text for people and as JSON for programs.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "subtitles/subtitle_track.h"

namespace captoria {

// Takes the listing piece by piece, so that a large one is never held whole; false stops it.
using ListingSink = std::function<bool(std::string_view)>;

// A heading, a line a cue (line breaks of its text shown as " | ", other control characters as blanks, so that no text
// can steer the terminal) and a line that counts.
bool ListCuesAsTable(const SubtitleTrack& track, const ListingSink& sink);

// {"file", "encoding", "undecodable", "cues": [{"number", "show", "hide", "text", "tag", "selected", "outside"}],
// "problem"}. The row of a VobSub index has the number null, as its file has the encoding null. Bytes of a file name
// that are not UTF-8 appear as U+FFFD.
bool ListCuesAsJson(const SubtitleTrack& track, const ListingSink& sink);

}  // namespace captoria
