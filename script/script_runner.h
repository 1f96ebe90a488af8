// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Starting a mux script ("divxmux.bat"), in a window of its own or out of sight, and waiting for its end.
#pragma once

#include <memory>
#include <string>

#include "base/job_progress.h"
#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

// How the script's console window is shown; the numbers are those of the platform's process start.
enum class ShowStyle { Hidden = 0, Normal = 1, Minimized = 2, Maximized = 3, NormalNoFocus = 4, MinimizedNoFocus = 6 };

struct ScriptStart {
  std::string script;  // a path, like the next one relative to our working folder
  ShowStyle show = ShowStyle::Hidden;
  std::string progress_file{};  // where the tools tell how far they are, see progress_file.h; empty: none

  // Where the system can, a hidden script is killed when the thread that started it ends, and so when we crash. Not for
  // one that will be left running.
  bool ends_with_us = true;
};

// One that is neither waited for nor left running is ended, as far as it can be reached.
class RunningScript {
 public:
  virtual ~RunningScript() = default;

  // Its exit status. `progress` gets what the tools tell through the progress file (done and total in KiB), else 0 of
  // 1, about twenty times a second; when it says stop, script and tools are ended and the answer is Cancelled. Only
  // once, and not after LeaveRunning.
  virtual Result<int> Wait(JobProgress& progress) = 0;

  // Gives it up: it goes on alone, past our own end too unless it was started to end with us.
  virtual void LeaveRunning() = 0;
};

class ScriptRunner {
 public:
  virtual ~ScriptRunner() = default;

  virtual Result<std::unique_ptr<RunningScript>> Start(const ScriptStart& start) = 0;
};

// Has our program captoria-run read the script. It writes what the tools say to "divxmux.log" beside the script.
//
// Every style but Hidden opens a terminal window, as large as the desktop opens one; without a desktop or a terminal
// program the script runs hidden. The exit status is then the terminal's. There are terminals that hand the script to
// another process and are done at once: the script counts as running until captoria-run is done with it, and its
// status, which nobody tells, as 0.
class CaptoriaRun final : public ScriptRunner {
 public:
  // `program_folder` is where captoria-run lies. `environment` tells of a desktop (DISPLAY, WAYLAND_DISPLAY) and where
  // the terminal program is (x-terminal-emulator or xterm, on PATH).
  explicit CaptoriaRun(std::string program_folder, Environment environment);

  // A progress file left from before is removed, and the log of a script that gets a window. NotFound without
  // captoria-run, Unwritable for an old log that cannot be removed, and the errors of Process::Start.
  Result<std::unique_ptr<RunningScript>> Start(const ScriptStart& start) override;

 private:
  std::string program_folder_;
  Environment environment_;
};

}  // namespace captoria
