// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What commands show while they run. A window draws it, a command line mostly ignores it; questions go through the
// prompts.
#pragma once

#include <cstddef>
#include <string>

#include "base/finding.h"

namespace captoria {

class WorkspaceView {
 public:
  virtual ~WorkspaceView() = default;

  // The video changed, and with it the stream table, the video system and the preview's picture.
  virtual void ShowVideo() {}

  // Brings the stream table before the user's eyes.
  virtual void BringUpStreams() {}

  // The tabs, the current track or its cues changed. The title of the window names the current track's file.
  virtual void ShowTracks() {}

  // A command file ran on the current track: tags and selection of its cues changed, and `selected` cues are selected.
  virtual void ShowCommandsRun(const std::string& /*file_name*/, std::size_t /*selected*/) {}

  // The program's texts changed to another language.
  virtual void ShowLanguage() {}

  // Something worth knowing that needs no answer.
  virtual void ShowFinding(const Finding& finding) = 0;
};

}  // namespace captoria
