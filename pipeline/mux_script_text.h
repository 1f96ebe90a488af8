// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The script "divxmux.bat", whose commands turn a video and the files of the bitmap job into the film.
// script/mux_script.h writes and reads it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/result.h"
#include "pipeline/avi_inspection.h"
#include "pipeline/temp_folder.h"
#include "script/list_text.h"
#include "subtitles/subtitle_track.h"

namespace captoria {

struct MuxScript {
  std::string program_folder;  // for the drive
  std::string temp_folder;     // where the script runs
  ListForm form = ListForm::Converter;
  bool pal_mode1 = false;  // for the converter
  bool pause = false;      // at the end
  std::string avi_path;
  std::span<const StreamRow> streams;  // of the video; unknown ones are not named and so are left out
  std::span<const SubtitleTrack> tracks;
  std::string output;
};

// The name of a film made from the video `avi_path`: beside it, like it, with ".divx". When a file or a conversion has
// it: with as many "_" before the extension as it takes, or, with `replace`, the name all the same; but never the
// video's own.
std::string OutputPath(const std::string& avi_path, bool replace, const NameTaken& in_making);

// "en" of "en ENGLISH"; "en" as well for a text without a blank.
std::string LanguageCode(std::string_view language);

// The name of a track's stream, by which players offer it: "Subtitle - en;02".
std::string SubtitleTitle(const TrackStyle& style);

// Unsupported, naming the path and what to do, for a name that the script cannot carry or the system cannot take.
Result<void> CheckNames(const MuxScript& script);

// The script's text; its names were checked.
std::string TextOf(const MuxScript& script);

}  // namespace captoria
