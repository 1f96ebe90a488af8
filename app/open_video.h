// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Opening the video that subtitles are put beside, and with it the subtitle files of its name.
#pragma once

#include <string>

#include "app/session.h"
#include "base/result.h"

namespace captoria {

struct OpenVideoOptions {
  bool ignore_auto_srt = false;  // tracks stay as they are
  bool is_batch = false;         // an unattended caller: no message box is shown
};

// Opens `path`, or the file that the user chooses when that is empty and then stands there; Cancelled when none is
// chosen, and nothing has changed. A file that cannot be read as a video is told and becomes the open video all the
// same, without streams: subtitles of its name are loaded and can be worked on.
//
// A subtitle file that cannot be loaded is told, and the next one is tried.
Result<void> OpenAnAviFile(Session& session, std::string& path, const OpenVideoOptions& options);

// The user says what the frames of the video are, whatever its rate.
void ChooseVideoSystem(Session& session, bool ntsc);

}  // namespace captoria
