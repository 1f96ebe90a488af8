// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/workspace.h"

#include <utility>

namespace captoria {

Workspace::Workspace(ProgramFolders program_folders, Preferences chosen_preferences, Prompts& user_prompts,
                     WorkspaceView& workspace_view, Attendance attendance)
    : folders(std::move(program_folders)),
      prompts(user_prompts),
      view(workspace_view),
      preferences(std::move(chosen_preferences)),
      project(preferences),
      reporter(prompts, view, attendance) {}

Workspace::Workspace(const ProgramFolders& program_folders, Prompts& user_prompts, WorkspaceView& workspace_view,
                     Attendance attendance)
    : Workspace(program_folders, Preferences(program_folders.data, user_prompts), user_prompts, workspace_view,
                attendance) {
  if (preferences.Problem()) reporter.Tell({.kind = FindingKind::NotSaved, .message = *preferences.Problem()});
}

}  // namespace captoria
