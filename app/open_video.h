// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Opening the video that subtitles are put beside, and with it the subtitle files of its name.
#pragma once

#include <string>

#include "app/workspace.h"
#include "base/result.h"

namespace captoria {

struct OpenVideoOptions {
  bool ignore_auto_srt = false;  // tracks stay as they are
};

// Opens `path`. If it is empty, the user chooses a file, which is then put into `path`; Cancelled if none is chosen,
// and nothing changes. A file that cannot be read as a video is reported and becomes the open video all the same,
// without streams: subtitles of its name are loaded and can be worked on.
//
// A subtitle file that cannot be loaded is reported, and the next one is tried.
Result<void> OpenAnAviFile(Workspace& workspace, std::string& path, const OpenVideoOptions& options);

}  // namespace captoria
