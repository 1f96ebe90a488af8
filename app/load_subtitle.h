// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Loading a subtitle file into tracks.
#pragma once

#include <string>

#include "app/workspace.h"
#include "base/result.h"

namespace captoria {

struct LoadOptions {
  std::string encoding;    // the file's, if the user chose it; otherwise it is detected
  bool measure = true;     // check the safe viewing area; listing a file needs no fonts
  bool find_video = true;  // if no video is open, open the one of the file's name that the settings look for
};

// Loads `file`, a SubRip file or a VobSub index, into the current track in place of what the track held. If the name is
// blank (NotFound), or the file is missing (NotFound) or cannot be read, nothing changes. A SubRip file with a fault is
// loaded up to the fault: the track's source says where and why, and so does the reporter.
//
// The command file of the settings (`BatchToRun`), if any, runs on the cues of a SubRip file.
Result<void> LoadFileToList(Workspace& workspace, const std::string& file, const LoadOptions& options);

// Loads `file` into as many tracks as the settings say (`LoadSubManyTimes`), from the current one on; a VobSub index
// into the current track alone. A fault of the file is reported once.
Result<void> OpenSubtitleFile(Workspace& workspace, const std::string& file, const LoadOptions& options);

}  // namespace captoria
