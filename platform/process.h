// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Another program, started directly with an argument vector. No shell ever reads its arguments, so nothing in them can
// become a command.
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
  std::string program;                   // a path, relative to our own working folder; PATH is not searched
  std::vector<std::string> arguments;    // without the program itself
  std::string folder;                    // its working folder; empty: ours
  std::vector<std::string> environment;  // "NAME=value", each in place of a variable of that name or beside ours
  std::string log_file;       // what it writes to its standard output and error is appended here; empty: none
  bool shows_output = true;   // and to ours
  bool ends_with_us = false;  // where the system can, it is killed when our process ends
};

// Its standard input is empty. It gets none of our open files and leads a process group of its own, so that it can be
// ended with whatever it has started, and the terminal's Ctrl-C reaches us alone.
class Process {
 public:
  // NotFound, Unreadable (no permission to run it or to enter its folder), Unsupported (no program of this system),
  // TooLarge (more arguments than the system passes on), or Unwritable for the log file.
  static Result<Process> Start(const ProcessStart& start);
  Process(Process&& other) noexcept;
  Process& operator=(Process&&) = delete;

  // Terminates it unless it has been waited for or left running.
  ~Process();

  // Its exit status, or 128 and the number of the signal that ended it. `progress` is asked about twenty times a second
  // ("0 of 1 steps"); when it says stop, the process is terminated and the answer is Cancelled. With both a log file
  // and shown output it is this call that passes the output on.
  Result<int> Wait(JobProgress& progress);

  // Ends it and what it has started: at once for those that heed the request, after two seconds for the others.
  void Terminate();

  // Gives it up: it goes on alone. Not for a process whose output has to be passed on.
  void LeaveRunning() &&;

 private:
  // What it writes to one of our two outputs, on its way there and into the log.
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

  int id_;     // 0: over, or no longer ours
  int ended_;  // becomes readable when it ends; -1 where the system has no such thing
  int log_;
  std::array<Stream, 2> streams_;
};

// The first file `name` in the folders of PATH that may be run.
std::optional<std::string> FindOnPath(std::string_view name, const Environment& environment);

}  // namespace captoria
