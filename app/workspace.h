// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The parts that one user of the commands owns: a window, a command line, or a worker thread with parts of its own.
//
// It has no verbs. A command that opens files takes a workspace, since opening touches every part; all others take the
// parts they need.
#pragma once

#include <string>

#include "app/preferences.h"
#include "app/project.h"
#include "app/reporter.h"
#include "app/workspace_view.h"
#include "localisation/messages.h"
#include "platform/program_folder.h"
#include "platform/prompts.h"
#include "render/cue_canvas.h"

namespace captoria {

// The language that the program speaks.
struct ProgramLanguage {
  LanguageDocument document;
  std::string LangFile;  // base name of its file, as in "English.Captoria.exe"; empty until one was loaded

  std::string TextOf(const Message& message) const { return MessageText(document, message); }
};

// What all bitmaps have in common, by the settings.
inline BitmapFrame FrameOf(const Settings& settings) {
  return {BitmapWidth(settings), SplitColour(settings.BackColor)};
}

struct Workspace {
  // `prompts` and `view` outlive the workspace. The settings are those of the data folder; if they cannot be
  // used, that is reported.
  Workspace(const ProgramFolders& program_folders, Prompts& user_prompts, WorkspaceView& workspace_view,
            Attendance attendance = Attendance::Person);

  // With settings that were opened before.
  Workspace(ProgramFolders program_folders, Preferences chosen_preferences, Prompts& user_prompts,
            WorkspaceView& workspace_view, Attendance attendance);
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  ProgramFolders folders;
  Prompts& prompts;
  WorkspaceView& view;
  Preferences preferences;
  ProgramLanguage language;
  Project project;
  CueCanvas canvas;
  Reporter reporter;
};

}  // namespace captoria
