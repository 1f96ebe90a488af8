// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// captoria-run: runs a mux script on systems without a command interpreter for it. It reads the few kinds of lines that
// such a script has and starts the tools directly, never through a shell.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>

#include "base/ascii.h"
#include "base/path_text.h"
#include "platform/exit_status.h"
#include "platform/files.h"
#include "platform/input_file.h"
#include "platform/interrupt.h"
#include "platform/locked_file.h"
#include "platform/process.h"
#include "platform/program_folder.h"
#include "platform/terminal.h"
#include "script/mux_script.h"
#include "script/tool_log.h"

namespace captoria {
namespace {

namespace fs = std::filesystem;
using Kind = MuxScriptStep::Kind;

class UntilInterrupted final : public JobProgress {
 public:
  bool Report(std::size_t, std::size_t) override { return !Interrupt::Requested(); }
};

std::string_view WithoutExe(std::string_view name) {
  constexpr std::string_view kExe = ".exe";
  return EndsIgnoringCase(name, kExe) ? name.substr(0, name.size() - kExe.size()) : name;
}

// The file in `folder` that `name` means: the file of exactly that name, or else the same name in another case, or else
// the same name with or without ".exe".
std::optional<std::string> FindToolIn(const std::string& folder, std::string_view name) {
  std::optional<std::string> found;
  int best = 3;
  for (const std::string& file : ListFiles(folder, "*")) {
    if (!EqualsIgnoringCase(WithoutExe(file), WithoutExe(name))) continue;
    const int distance = file == name ? 0 : EqualsIgnoringCase(file, name) ? 1 : 2;
    if (distance >= best) continue;
    best = distance;
    found = JoinPath(folder, file);
  }
  return found;
}

bool IsWindowsProgram(const std::string& path) {
  const auto file = InputFile::Open(path);
  std::array<std::uint8_t, 2> start{};
  return file && file->ReadExactly(0, start) && start[0] == 'M' && start[1] == 'Z';
}

// Waits for Enter if a person can press it. False if interrupted.
bool Pause() {
  if (!InputIsTerminal()) return true;
  std::fputs("Press Enter to continue . . . ", stdout);
  std::fflush(stdout);
  return AwaitLine();
}

class ScriptRun {
 public:
  explicit ScriptRun(const std::string& script) {
    std::error_code gone;  // if our folder was deleted, paths stay as they were given
    folder_ = fs::current_path(gone).string();
    script_ = (fs::path(folder_) / script).string();
    script_folder_ = fs::path(script_).parent_path().string();
  }

  // Returns the exit status of the first tool that fails, or else of the last tool.
  int Run() {
    const auto steps = ReadMuxScript(script_);
    if (!steps && steps.error().kind == ErrorKind::NotFound) return Complain(steps.error().message);
    BeginLog();
    if (!steps) return Complain(steps.error().message);

    int status = 0;
    for (const MuxScriptStep& step : *steps) {
      // Pause after a failure too, so that there is time to read the reason.
      if (step.kind == Kind::Pause && !Pause()) return kExitInterrupted;
      if (status == 0 && step.kind == Kind::ChangeFolder) status = ChangeFolder(step);
      if (status == 0 && step.kind == Kind::RunTool) status = RunTool(step);
      if (Interrupt::Requested()) return kExitInterrupted;
    }
    return status;
  }

 private:
  // The lock shows a program that started us through a terminal that we are still running.
  void BeginLog() {
    const std::string path = JoinPath(script_folder_, kToolLogName);
    auto begun = LockedFile::Begin(path);
    if (!begun) {
      Complain(begun.error().message);
      return;
    }
    lock_.emplace(std::move(*begun));
    log_ = path;
  }

  // Writes to standard error and to the log, after the output of the tools.
  int Complain(const std::string& message) const {
    const std::string line = ToolLine("captoria-run", message) + "\n";
    std::fputs(line.c_str(), stderr);
    if (!log_.empty()) std::ofstream(log_, std::ios::app | std::ios::binary) << line;
    return kExitFailed;
  }

  int Complain(const MuxScriptStep& step, const std::string& message) const {
    return Complain(script_ + ": line " + std::to_string(step.line) + ": " + message);
  }

  int ChangeFolder(const MuxScriptStep& step) {
    const std::string folder = (fs::path(folder_) / step.words.front()).string();
    if (!FolderExists(folder)) return Complain(step, folder + ": is not a folder");
    folder_ = folder;
    return 0;
  }

  std::optional<std::string> FindTool(const std::string& name) const {
    for (const std::string& folder : {folder_, script_folder_, ExecutableFolder()}) {
      if (auto found = FindToolIn(folder, name)) return found;
    }
    return std::nullopt;
  }

  int RunTool(const MuxScriptStep& step) const {
    const std::string& name = step.words.front();
    const auto tool = FindTool(name);
    if (!tool) return Complain(step, name + ": not found in " + folder_ + ", beside the script or beside captoria-run");

    ProcessStart start{.program = *tool,
                       .arguments{step.words.begin() + 1, step.words.end()},
                       .folder = folder_,
                       .environment{},
                       .log_file = log_,
                       .shows_output = true,
                       .ends_with_us = true};
    if (IsWindowsProgram(*tool)) {
      const auto wine = FindOnPath("wine", ProcessEnvironment());
      if (!wine) return Complain(step, *tool + ": is a Windows program; install wine to run it");
      start.program = *wine;
      start.arguments.insert(start.arguments.begin(), *tool);
    }
    auto process = Process::Start(start);
    if (!process) return Complain(step, process.error().message);
    UntilInterrupted progress;
    const auto status = process->Wait(progress);
    if (!status)
      return status.error().kind == ErrorKind::Cancelled ? kExitInterrupted : Complain(step, status.error().message);
    if (*status != 0) Complain(step, name + " ended with status " + std::to_string(*status));
    return *status;
  }

  std::string folder_;  // where the next tool runs
  std::string script_;
  std::string script_folder_;
  std::string log_;  // empty if there is none
  std::optional<LockedFile> lock_;
};

}  // namespace
}  // namespace captoria

int main(int argc, char** argv) {
  using namespace captoria;
  CLI::App app("Runs a mux script (divxmux.bat) and the tools that it names.", "captoria-run");
  app.set_version_flag("-V,--version", "captoria-run " CAPTORIA_VERSION);
  app.footer(
      "Tools are looked up in the script's current folder, beside the script and beside\n"
      "captoria-run, ignoring case. Their output also goes to divxmux.log beside the script.\n"
      "Exit status: that of the tool that failed; 0 done, 1 a step failed, 2 wrong usage,\n"
      "130 interrupted.");
  std::string script;
  app.add_option("SCRIPT", script, "The script to run")->required();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kExitDone : kExitUsage;
  }
  const Interrupt interrupt;
  OutliveReaders();
  return ScriptRun(script).Run();
}
