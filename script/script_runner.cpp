// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/script_runner.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/files.h"
#include "platform/locked_file.h"
#include "platform/process.h"
#include "script/progress_file.h"
#include "script/tool_log.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;
using SteadyTime = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLookEvery{50};
constexpr std::chrono::seconds kBeginsWithin{5};  // captoria-run, after its terminal has handed it over
constexpr std::chrono::seconds kEndsWithin{5};    // longer than captoria-run waits before it kills a tool

// Neither a terminal nor a tool need have our working folder.
std::string WholePath(const fs::path& path) {
  std::error_code gone;  // our own folder
  const fs::path whole = fs::absolute(path, gone);
  return (gone ? path : whole).string();
}

// Reports the numbers of the progress file instead of those of the wait, if there are any.
class ToldProgress final : public JobProgress {
 public:
  ToldProgress(const std::string& file, JobProgress& progress) : file_(file), progress_(progress) {}

  bool Report(std::size_t done, std::size_t total) override {
    const auto told = ReadProgress(file_);
    return told ? progress_.Report(told->first, told->second) : progress_.Report(done, total);
  }

 private:
  const std::string& file_;
  JobProgress& progress_;
};

class HiddenScript final : public RunningScript {
 public:
  HiddenScript(Process process, std::string progress_file)
      : process_(std::move(process)), progress_file_(std::move(progress_file)) {}

  Result<int> Wait(JobProgress& progress) override {
    ToldProgress told(progress_file_, progress);
    return process_.Wait(told);
  }

  void LeaveRunning() override { std::move(process_).LeaveRunning(); }

 private:
  Process process_;
  std::string progress_file_;
};

class ScriptInWindow final : public RunningScript {
 public:
  ScriptInWindow(Process terminal, std::string progress_file, std::string log, std::string captoria_run)
      : terminal_(std::move(terminal)),
        progress_file_(std::move(progress_file)),
        captoria_run_(std::move(captoria_run)),
        log_(std::move(log)) {}

  Result<int> Wait(JobProgress& progress) override {
    ToldProgress told(progress_file_, progress);
    const auto status = terminal_.Wait(told);
    if (!status) return status.error().kind == ErrorKind::Cancelled ? Stop(SteadyTime::now()) : status;
    // A terminal that failed did not hand the script to another process either.
    const auto begins_by = SteadyTime::now() + (*status == 0 ? kBeginsWithin : std::chrono::seconds{0});
    bool handed_over = false;
    for (; GoesOn(begins_by); std::this_thread::sleep_for(kLookEvery)) {
      handed_over = true;
      if (!told.Report(0, 1)) return Stop(begins_by);
    }
    return handed_over ? 0 : *status;
  }

  void LeaveRunning() override { std::move(terminal_).LeaveRunning(); }

 private:
  // Whether captoria-run is running or may still start.
  bool GoesOn(SteadyTime::time_point begins_by) {
    return log_.HasBegun() ? log_.IsLocked() : SteadyTime::now() < begins_by;
  }

  // If the terminal was ended, captoria-run got a hang-up and needs a moment to end its tools. If the terminal had
  // ended before, captoria-run itself has to be asked.
  tl::unexpected<Error> Stop(SteadyTime::time_point begins_by) {
    const auto ends_by = std::max(begins_by, SteadyTime::now()) + kEndsWithin;
    for (; GoesOn(begins_by); std::this_thread::sleep_for(kLookEvery)) {
      if (SteadyTime::now() > ends_by) {
        return Failure(ErrorKind::Cancelled, "stopped waiting; the script still runs in its window");
      }
      if (log_.HasBegun()) log_.AskHolderToEnd(captoria_run_);
    }
    return Failure(ErrorKind::Cancelled, "stopped");
  }

  Process terminal_;
  std::string progress_file_;
  std::string captoria_run_;
  LockWatch log_;
};

// No value if no window can be opened.
std::optional<std::string> FindTerminal(const Environment& environment) {
  const auto is_set = [&](const char* name) { return !environment(name).value_or("").empty(); };
  if (!is_set("DISPLAY") && !is_set("WAYLAND_DISPLAY")) return std::nullopt;
  auto terminal = FindOnPath("x-terminal-emulator", environment);
  return terminal ? terminal : FindOnPath("xterm", environment);
}

}  // namespace

CaptoriaRun::CaptoriaRun(std::string program_folder, Environment environment)
    : program_folder_(std::move(program_folder)), environment_(std::move(environment)) {}

Result<std::unique_ptr<RunningScript>> CaptoriaRun::Start(const ScriptStart& start) {
  const std::string captoria_run = WholePath(fs::path(program_folder_) / "captoria-run");
  if (!FileExists(captoria_run)) {
    return Failure(ErrorKind::NotFound, captoria_run + ": is missing; the tools cannot be started without it");
  }
  const std::string script = WholePath(start.script);
  const std::string progress_file = start.progress_file.empty() ? "" : WholePath(start.progress_file);
  if (!progress_file.empty())
    (void)RemoveFile(progress_file);  // if that fails, old progress is shown until there is new
  ProcessStart process_start{.program = captoria_run,
                             .arguments = {script},
                             .folder{},
                             .environment = {std::string{kProgressVariable} + "=" + progress_file},
                             .log_file{},
                             .shows_output = false,
                             .ends_with_us = start.ends_with_us};
  const auto terminal = start.show == ShowStyle::Hidden ? std::nullopt : FindTerminal(environment_);
  if (!terminal) {
    auto process = Process::Start(process_start);
    if (!process) return tl::unexpected(process.error());
    return std::make_unique<HiddenScript>(std::move(*process), progress_file);
  }
  // An old log would look like the log of a script that has already ended.
  const std::string log = (fs::path(script).parent_path() / kToolLogName).string();
  if (auto removed = RemoveFile(log); !removed) return tl::unexpected(removed.error());
  process_start.program = *terminal;
  process_start.arguments = {"-e", captoria_run, script};
  process_start.ends_with_us = false;  // the user closes the window
  auto process = Process::Start(process_start);
  if (!process) return tl::unexpected(process.error());
  return std::make_unique<ScriptInWindow>(std::move(*process), progress_file, log, captoria_run);
}

}  // namespace captoria
