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
  std::span<const StreamRow> streams;  // of the video; unknown ones are left out
  std::span<const SubtitleTrack> tracks;
  std::string output;
};

// The path of the film: the video's, with the extension ".divx". If a file or another conversion has that name, "_" is
// added before the extension as often as needed. With `replace` the name stays, unless it is the video's own.
std::string OutputPath(const std::string& avi_path, bool replace, const NameTaken& in_making);

// "el" for "el GREEK"; "en" for a text without a blank.
std::string LanguageCode(std::string_view language);

// The name of a track's stream, which players show: "Subtitle - en;02".
std::string SubtitleTitle(const TrackStyle& style);

// Unsupported for a name that the script cannot contain or that is too long; the message says what to do.
Result<void> CheckNames(const MuxScript& script);

// The text of the script. Call CheckNames first.
std::string TextOf(const MuxScript& script);

}  // namespace captoria
