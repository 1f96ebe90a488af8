// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <pty.h>
#include <signal.h>
#include <sys/stat.h>

#include <functional>

#include "tests/support/other_process.h"
#include "tests/support/run_program.h"

namespace captoria {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class CaptoriaRun : public testing::Test {
 protected:
  CaptoriaRun() {
    std::filesystem::create_directories(folder_.File("my tmp"));
    std::filesystem::create_directories(folder_.File("script"));
  }

  // A tool whose body is a shell script; the program under test never sees that shell.
  void PutTool(const std::string& name, const std::string& body) const {
    ::chmod(folder_.Put(name, "#!/bin/sh\n" + body).c_str(), 0700);
  }
  std::string PutScript(const std::string& lines) const {
    return folder_.Put("script/divxmux.bat", "/h\r\ncd \"" + folder_.File("my tmp") + "\"\r\n" + lines);
  }
  ProgramRun Run(const std::string& lines) const { return RunProgram("captoria-run", {PutScript(lines)}); }
  std::string Log() const { return folder_.Get("script/divxmux.log"); }

  TestFolder folder_;
};

// captoria-run on a terminal of its own.
class OnATerminal {
 public:
  explicit OnATerminal(const std::string& script) {
    const std::string program = std::string{CAPTORIA_BIN} + "/captoria-run";
    id_ = ::forkpty(&terminal_, nullptr, nullptr, nullptr);
    if (id_ == 0) {
      ::execl(program.c_str(), program.c_str(), script.c_str(), nullptr);
      ::_exit(127);
    }
    ::fcntl(terminal_, F_SETFL, O_NONBLOCK);
  }
  OnATerminal(const OnATerminal&) = delete;
  OnATerminal& operator=(const OnATerminal&) = delete;
  ~OnATerminal() { Close(); }

  pid_t Id() const { return id_; }
  void Type(const std::string& keys) { EXPECT_EQ(::write(terminal_, keys.data(), keys.size()), ssize_t(keys.size())); }
  void Close() {
    if (const int open = std::exchange(terminal_, -1); open >= 0) ::close(open);
  }
  bool Shows(const std::string& text) {
    char buffer[4096];
    for (ssize_t got = 0; (got = ::read(terminal_, buffer, sizeof(buffer))) > 0;) shown_.append(buffer, size_t(got));
    return shown_.find(text) != shown_.npos;
  }
  int Status() {
    int status = 0;
    EXPECT_EQ(::waitpid(id_, &status, 0), id_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

 private:
  int terminal_ = -1;
  pid_t id_;
  std::string shown_;
};

TEST_F(CaptoriaRun, RunsTheToolsInTheScriptsFolderWithArgumentsAsTheyStand) {
  PutTool("my tmp/BmpToXsub.EXE", "echo converting >&2; echo \"$1\" >converted\n");
  PutTool("my tmp/DivXMux.exe", "printf '%s|' \"$@\"; pwd\n");
  const auto run =
      Run("bmptoxsub.exe linkerfile0.txt\r\ndivxmux.exe -v (A $(touch hurt) & B) \"/m/a; b.avi\"\r\npause\r\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "-v|(A|$(touch|hurt)|&|B)|/m/a; b.avi|" + folder_.File("my tmp") + "\n");
  EXPECT_EQ(run.err, "converting\n");
  EXPECT_EQ(Log(), "converting\n" + run.out);
  EXPECT_EQ(folder_.Get("my tmp/converted"), "linkerfile0.txt\n");
  EXPECT_FALSE(FileExists(folder_.File("my tmp/hurt")));
}

TEST_F(CaptoriaRun, TheNearestToolIsTaken) {
  const auto answer = [&] { return Run("captoria-RUN --version\n").out; };
  EXPECT_THAT(answer(), HasSubstr("captoria-run ")) << "beside the program";
  for (const char* name :
       {"script/captoria-run", "my tmp/captoria-run.exe", "my tmp/Captoria-Run", "my tmp/captoria-RUN"}) {
    PutTool(name, "echo " + std::string{name});
    EXPECT_EQ(answer(), std::string{name} + "\n");
  }
}

TEST_F(CaptoriaRun, StopsAtTheFirstToolThatFailsWithItsStatus) {
  PutTool("my tmp/a", "echo no room >&2; exit 7");
  PutTool("my tmp/b", "echo ran");
  const auto run = Run("b\na\ncd \"..\"\nb\n");
  EXPECT_EQ(run.status, 7);
  EXPECT_EQ(run.out, "ran\n");
  EXPECT_THAT(Log(), HasSubstr("ran\nno room\ncaptoria-run: "));
  EXPECT_THAT(Log(), EndsWith("divxmux.bat: line 4: a ended with status 7\n"));
}

TEST_F(CaptoriaRun, SaysWhatItCannotDo) {
  folder_.Put("my tmp/plain", "not to be run");
  using Case = std::pair<const char*, const char*>;
  for (const auto& [lines, message] :
       {Case{"none.exe\n", "line 3: none.exe: not found in "}, Case{"cd \"sub\"\n", "my tmp/sub: is not a folder"},
        Case{"plain\n", "plain: cannot be started: Permission denied"},
        Case{"\x1B[2J/true\n", "line 3: \"\\x1B[2J/true\" is not the name of a tool"}}) {
    const auto run = Run(lines);
    EXPECT_EQ(run.status, 1) << lines;
    EXPECT_THAT(run.err, HasSubstr(message));
    EXPECT_EQ(Log(), run.err) << "the log holds this run alone";
  }
  EXPECT_EQ(RunProgram("captoria-run", {folder_.File("none/a.bat")}).status, 1);
  EXPECT_EQ(RunProgram("captoria-run", {}).status, 2);
  EXPECT_EQ(RunProgram("captoria-run", {PutScript("plain\n"), "more"}).status, 2);
}

TEST_F(CaptoriaRun, WindowsProgramsAreLeftToWine) {
  folder_.Put("my tmp/divxmux.exe", "MZ\x90");
  const std::string path = ::getenv("PATH");
  ::setenv("PATH", folder_.File("bin").c_str(), 1);
  const auto without = Run("divxmux.exe -v ()\n");
  EXPECT_EQ(without.status, 1);
  EXPECT_THAT(without.err, HasSubstr("divxmux.exe: is a Windows program; install wine"));

  std::filesystem::create_directory(folder_.File("bin"));
  PutTool("bin/wine", "echo \"$#\" \"$@\"");
  EXPECT_EQ(Run("divxmux.exe -v \"a b\"\n").out, "3 " + folder_.File("my tmp/divxmux.exe") + " -v a b\n");
  ::setenv("PATH", path.c_str(), 1);
}

TEST_F(CaptoriaRun, PauseWaitsForEnterOrCtrlCAlsoAfterAFailure) {
  PutTool("my tmp/a", "exit 7");
  for (const auto& [key, status] : {std::pair{"\n", 7}, std::pair{"\x03", 130}}) {
    OnATerminal run(PutScript("a\npause\n"));
    EXPECT_TRUE(Soon([&] { return run.Shows("Press Enter"); }));
    EXPECT_TRUE(run.Shows("a ended with status 7"));
    EXPECT_EQ(::waitpid(run.Id(), nullptr, WNOHANG), 0) << "it waits";
    run.Type(key);
    EXPECT_EQ(run.Status(), status);
  }
}

TEST_F(CaptoriaRun, LeavesNoToolRunning) {
  struct Case {
    const char* name;
    std::function<void(OnATerminal&)> end;
    int status;
  };
  for (const auto& [name, end, status] :
       {Case{"Ctrl-C", [](OnATerminal& run) { run.Type("\x03"); }, 130},
        Case{"request to end", [](OnATerminal& run) { ::kill(run.Id(), SIGTERM); }, 130},
        Case{"terminal closed", [](OnATerminal& run) { run.Close(); }, 130},
        Case{"kill", [](OnATerminal& run) { ::kill(run.Id(), SIGKILL); }, 128 + SIGKILL}}) {
    SCOPED_TRACE(name);
    folder_.Put("my tmp/id", "");
    PutTool("my tmp/a", "echo $$ >id; exec sleep 100");
    PutTool("my tmp/b", "touch \"$0.ran\"");
    OnATerminal run(PutScript("a\nb\n"));
    ASSERT_TRUE(Soon([&] { return folder_.Get("my tmp/id").ends_with('\n'); }));
    end(run);
    EXPECT_EQ(run.Status(), status);
    const std::string id = std::to_string(std::stoi(folder_.Get("my tmp/id")));
    EXPECT_TRUE(Soon([&] { return IsOver(id); }));
    EXPECT_FALSE(FileExists(folder_.File("my tmp/b.ran")));
  }
}

TEST_F(CaptoriaRun, NeitherAReaderThatGoesAwayNorAnIgnoredSignalStopsIt) {
  PutTool("my tmp/a", "kill -HUP $PPID; sleep 0.3; head -c 1000000 /dev/zero; echo done >finished");
  const std::string command = std::string{CAPTORIA_BIN} + "/captoria-run " + PutScript("a\n") + " | true";
  EXPECT_EQ(std::system(("trap '' HUP; exec 2>/dev/null; " + command).c_str()), 0);
  EXPECT_TRUE(Soon([&] { return folder_.Get("my tmp/finished") == "done\n"; }));
}

}  // namespace
}  // namespace captoria
