// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A mux script in a terminal window, with captoria-run itself at work in it. The terminals are shell scripts.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "script/script_runner.h"
#include "tests/support/other_process.h"
#include "tests/support/run_program.h"

namespace captoria {
namespace {

class StopOnceThereIs final : public JobProgress {
 public:
  explicit StopOnceThereIs(std::string file) : file_(std::move(file)) {}
  bool Report(std::size_t, std::size_t) override { return !ReadWholeFile(file_).value_or("").ends_with('\n'); }

 private:
  std::string file_;
};

class ScriptInWindow : public testing::Test {
 protected:
  void PutProgram(const std::string& name, const std::string& body) const {
    ::chmod(folder_.Put(name, "#!/bin/sh\n" + body).c_str(), 0700);
  }

  TestFolder folder_;
};

TEST_F(ScriptInWindow, StoppingEndsItsToolsWhicheverTerminalItIsIn) {
  using Case = std::pair<const char*, const char*>;
  PutProgram("a", "echo $$ >id; exec sleep 100");
  PutProgram("b", "touch ran");
  const std::string script = folder_.Put("divxmux.bat", "/h\ncd \"" + folder_.Path() + "\"\na\nb\n");
  for (const auto& [name, terminal] :
       {Case{"hangs up at its end", "shift; setsid \"$@\" & trap \"kill -HUP $!; exit 1\" TERM; wait"},
        Case{"is done at once", "shift; setsid \"$@\" & exit 0"}}) {
    SCOPED_TRACE(name);
    PutProgram("x-terminal-emulator", terminal);
    folder_.Put("id", "");
    CaptoriaRun runner(CAPTORIA_BIN, [&](const std::string&) { return folder_.Path(); });
    auto running = runner.Start({.script = script, .show = ShowStyle::Normal});
    ASSERT_TRUE(running) << running.error().message;
    StopOnceThereIs tool_runs(folder_.File("id"));
    const auto status = (*running)->Wait(tool_runs);
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Cancelled);
    EXPECT_EQ(status.error().message, "stopped");
    EXPECT_TRUE(IsOver(std::to_string(std::stoi(folder_.Get("id")))));
    EXPECT_FALSE(FileExists(folder_.File("ran")));
  }
}

}  // namespace
}  // namespace captoria
