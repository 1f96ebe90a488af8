// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Create DivX": from the open video and tracks to the film.
#pragma once

#include <string>

#include "app/locate_tool.h"
#include "app/session.h"
#include "base/result.h"
#include "platform/document_opener.h"
#include "script/script_runner.h"

namespace captoria {

// What a conversion starts outside of the program.
struct Outside {
  ScriptRunner& scripts;
  DocumentOpener& documents;
  AskForTool ask_for_tool = AskForToolFile;
};

struct MakeOptions {
  bool is_batch = false;   // an unattended caller: it waits, no outcome is shown, nothing is left behind
  bool keep_temp = false;  // whatever the settings say
};

struct MadeDivX {
  std::string output;
  bool finished = true;  // false: nobody waits for the tools, which are still at work
};

// Checks, draws the bitmaps, writes the script, runs it and cleans up (`MakeFinalDivX`, `CreateBat`). What keeps it
// from beginning is shown also when `is_batch`; the outcome is not. Cancelled where the user stopped the work.
//
// The error of a tool that failed ends with the last lines it wrote. No film is there then, except one that was there
// before and was to be replaced.
Result<MadeDivX> MakeFinalDivX(Session& session, const Outside& outside, const MakeOptions& options);

// Whether the first track's subtitle file is there: what makes a conversion worth while.
bool HasSubtitles(const Session& session);

}  // namespace captoria
