// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What is said of a film at its end: a line of JSON for programs, the plan as text for people.
#pragma once

#include <string>
#include <string_view>

#include "app/convert_list.h"

namespace captoria {

// One object on one line:
//   {"video", "result": path or null, "status": "made"|"failed"|"planned"|"skipped",
//    "error": null or {"kind", "message"}, "warnings": [{"kind", "file", "line", "message"}],
//    "subtitles": [{"file", "encoding", "cues", "language", "problem": null or {"line", "message"}}], "seconds"}
// and for a film that was planned "streams": [{"type", "name", "kept"}], and of each subtitle its "style".
std::string FilmAsJson(const ConvertedFilm& film);

// The plan of a film: its result, streams and subtitles, a line each.
std::string PlanAsText(const ConvertedFilm& film);

// A path as JSON can carry it: as it is if it is UTF-8, else as a "file:" address with "%" and two digits for each byte
// that needs it. Paths from the root begin with "/", so the two cannot be confused.
std::string PathForJson(std::string_view path);

}  // namespace captoria
