// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Starts a mux script ("divxmux.bat"), hidden or in a window of its own, and waits for its end.
#pragma once

#include <memory>
#include <string>

#include "base/job_progress.h"
#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

// How the script's console window is shown. The numbers are those of the system's process start.
enum class ShowStyle { Hidden = 0, Normal = 1, Minimized = 2, Maximized = 3, NormalNoFocus = 4, MinimizedNoFocus = 6 };

struct ScriptStart {
  std::string script;  // a path; this one and the next may be relative to our working folder
  ShowStyle show = ShowStyle::Hidden;
  std::string progress_file{};  // where the tools report progress, see progress_file.h; empty: no file

  // If the system can do so, a hidden script is killed when the thread that started it ends, and so if we crash. Set it
  // to false for a script that will be left running.
  bool ends_with_us = true;
};

// A script that is neither waited for nor left running is ended, if that is possible.
class RunningScript {
 public:
  virtual ~RunningScript() = default;

  // Waits for its end and returns the exit status. Calls `progress` about twenty times a second with the numbers of the
  // progress file (done and total in KiB), or with 0 of 1 if there are none. If it says stop, ends script and tools and
  // returns Cancelled. Call it only once, and not after LeaveRunning.
  virtual Result<int> Wait(JobProgress& progress) = 0;

  // Lets the script run on, even after our own end unless it was started with ends_with_us.
  virtual void LeaveRunning() = 0;
};

class ScriptRunner {
 public:
  virtual ~ScriptRunner() = default;

  virtual Result<std::unique_ptr<RunningScript>> Start(const ScriptStart& start) = 0;
};

// Runs the script with our program captoria-run, which writes the tools' output to "divxmux.log" beside the script.
//
// Every style except Hidden opens a terminal window of the desktop's usual size; without a desktop or a terminal
// program the script runs hidden. With a window the exit status is the terminal's. Some terminals hand the script to
// another process and end at once: then the script counts as running until captoria-run ends, and its status, which
// cannot be known, as 0.
class CaptoriaRun final : public ScriptRunner {
 public:
  // `program_folder` contains captoria-run. `environment` says whether there is a desktop (DISPLAY, WAYLAND_DISPLAY)
  // and where the terminal program is (x-terminal-emulator or xterm, on PATH).
  explicit CaptoriaRun(std::string program_folder, Environment environment);

  // Removes an old progress file and, if the script gets a window, its old log. NotFound if captoria-run is missing,
  // Unwritable if the old log cannot be removed, or an error of Process::Start.
  Result<std::unique_ptr<RunningScript>> Start(const ScriptStart& start) override;

 private:
  std::string program_folder_;
  Environment environment_;
};

}  // namespace captoria
