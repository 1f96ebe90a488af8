// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The program at work: its settings, its tracks and the file it last used. The state of the main window, without one.
//
// Commands are functions over a session, each in a file of its own; a session by itself only begins and ends.
#pragma once

#include <string>

#include "platform/program_folder.h"
#include "platform/prompts.h"
#include "platform/result.h"
#include "settings/ini_file.h"
#include "settings/settings.h"
#include "subtitles/track_set.h"

namespace captoria {

inline constexpr const char* kProgramTitle = "Captoria";

class Session {
 public:
  // Start-up: one empty track, all settings read, the first track styled. Never fails: a settings file that cannot be
  // used is put aside and told through `prompts`, which outlives the session. Nothing is written.
  Session(ProgramFolders program_folders, Prompts& user_prompts);

  // Selects the tab "<New>" or, with eight tracks, the last one.
  void SelectLastTab();

  // Shutdown, and before a video is opened: writes all that is to be remembered (`SaveValues`), whole or not at all.
  Result<void> Save();

  ProgramFolders folders;
  Prompts& prompts;
  Settings settings;
  TrackSet tracks;
  std::string current_file;  // the file the last load used

 private:
  clsIniFile ini_;
};

}  // namespace captoria
