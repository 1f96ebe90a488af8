// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Starts another program directly with a list of arguments. No shell reads them, so no argument can become a command.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/job_progress.h"
#include "base/result.h"
#include "platform/program_folder.h"

namespace captoria {

struct ProcessStart {
  std::string program;                   // a path, absolute or relative to our working folder; PATH is not searched
  std::vector<std::string> arguments;    // without the program itself
  std::string folder;                    // its working folder; empty: ours
  std::vector<std::string> environment;  // "NAME=value"; added to our own variables or replacing them
  std::string log_file;                  // gets its standard output and error appended; empty: no log
  bool shows_output = true;              // its output also goes to ours
  bool ends_with_us = false;             // if the system can do so, it is killed when our process ends
};

// The program's standard input is empty. It inherits none of our open files. It leads a process group of its own, so it
// can be ended together with everything it started, and Ctrl-C on the terminal reaches only us.
class Process {
 public:
  // Errors: NotFound, Unreadable (no permission to run it or to enter its folder), Unsupported (not a program for this
  // system), TooLarge (more arguments than the system allows), Unwritable (the log file).
  static Result<Process> Start(const ProcessStart& start);
  Process(Process&& other) noexcept;
  Process& operator=(Process&&) = delete;

  // Terminates it unless Wait or LeaveRunning was called.
  ~Process();

  // Waits for its end and returns the exit status, or 128 plus the number of the signal that ended it. Calls `progress`
  // about twenty times a second with "0 of 1 steps"; if that says stop, terminates the process and returns Cancelled.
  // If the output goes both to a log file and to ours, this call is what copies it.
  Result<int> Wait(JobProgress& progress);

  // Asks it and everything it started to end, and kills after two seconds whatever still runs.
  void Terminate();

  // Lets it run on without us. Not allowed if Wait has to copy its output.
  void LeaveRunning() &&;

 private:
  // One of its two outputs, to be copied to ours and into the log.
  struct Stream {
    int from = -1;
    int to = -1;
  };

  Process(int id, int ended, int log, std::array<Stream, 2> streams)
      : id_(id), ended_(ended), log_(log), streams_(streams) {}

  bool HasEnded() const;
  void AwaitOutput(int milliseconds);
  bool PassOn(Stream& stream);
  int Finish();

  int id_;     // 0: ended or no longer ours
  int ended_;  // becomes readable when it ends; -1 if the system has no such handle
  int log_;
  std::array<Stream, 2> streams_;
};

// The first executable file `name` in the folders of PATH; relative folders are skipped.
std::optional<std::string> FindOnPath(std::string_view name, const Environment& environment);

}  // namespace captoria
