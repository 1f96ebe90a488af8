// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Loading a subtitle file into the current track.
#pragma once

#include <string>

#include "app/session.h"
#include "base/result.h"

namespace captoria {

struct LoadOptions {
  bool is_batch = false;   // an unattended caller: no message box is shown
  std::string encoding;    // the file's, when the user chose it; else it is found out
  bool measure = true;     // check the safe viewing area; listing a file needs no fonts
  bool find_video = true;  // where none is open, open the one of the file's name that the settings look for
};

// Loads `file`, a SubRip file or a VobSub index, into the current track in place of what it held. When the name is
// blank or the file is not there or cannot be read, nothing changes; the error of the former is NotFound. A SubRip file
// at fault half-way is loaded up to there: the track's source says where and why, and so does a message, or the view.
//
// The command file of the settings (`BatchToRun`), where there is one, is run on the cues of a SubRip file.
Result<void> LoadFileToList(Session& session, const std::string& file, const LoadOptions& options);

// What the Open command and a dropped file do: as many tracks as the settings say (`LoadSubManyTimes`) get a SubRip
// file, from the current one on; a VobSub index goes into the current one alone.
Result<void> OpenSubtitleFile(Session& session, const std::string& file, const LoadOptions& options);

}  // namespace captoria
