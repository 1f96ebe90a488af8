// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/script_runner.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <set>

#include "tests/support/other_process.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;
using Step = std::pair<std::size_t, std::size_t>;

// Keeps what is reported, and has the script go on once its progress has come through.
class Watch final : public JobProgress {
 public:
  explicit Watch(const TestFolder& folder) : folder_(folder) {}
  bool Report(std::size_t done, std::size_t total) override {
    seen.insert({done, total});
    if (Step{done, total} == kTold) folder_.Put("go", "");
    return true;
  }

  static constexpr Step kTold{3, 8};
  std::set<Step> seen;

 private:
  const TestFolder& folder_;
};

constexpr const char* kTellAndWait =
    "echo '3 8' >told; mv told \"$DIVXMUX_PROGRESS\"; until [ -e go ]; do sleep 0.02; done; touch finished; exit 7";

// captoria-run and the terminal are shell scripts here, all in one folder, which is also PATH.
class ScriptRunnerTest : public testing::Test {
 protected:
  void PutProgram(const std::string& name, const std::string& body) const {
    ::chmod(folder_.Put(name, "#!/bin/sh\ncd " + folder_.Path() + "\n" + body).c_str(), 0700);
  }
  std::unique_ptr<RunningScript> Start(ShowStyle show, bool ends_with_us = true) {
    CaptoriaRun runner(folder_.Path(), [this](const std::string& name) -> std::optional<std::string> {
      return variables_.contains(name) ? std::optional(variables_[name]) : std::nullopt;
    });
    auto script = runner.Start({.script = folder_.File("divxmux.bat"),
                                .show = show,
                                .progress_file = folder_.File("progress"),
                                .ends_with_us = ends_with_us});
    EXPECT_TRUE(script) << script.error().message;
    return script ? std::move(*script) : nullptr;
  }
  std::string Id() const {
    EXPECT_TRUE(Soon([&] { return folder_.Get("id").ends_with('\n'); }));
    return std::to_string(std::stoi(folder_.Get("id")));
  }

  TestFolder folder_;
  std::map<std::string, std::string> variables_{{"DISPLAY", ":0"}, {"PATH", folder_.Path()}};
};

TEST_F(ScriptRunnerTest, HiddenPassesOnProgressAndStatus) {
  folder_.Put("progress", "5 5\n");  // of another day
  PutProgram("captoria-run", std::string{"echo $* >arguments; "} + kTellAndWait);
  Watch watch(folder_);
  EXPECT_EQ(Start(ShowStyle::Hidden)->Wait(watch), 7);
  EXPECT_EQ(folder_.Get("arguments"), folder_.File("divxmux.bat\n"));
  watch.seen.insert({0, 1});
  EXPECT_EQ(watch.seen, (std::set<Step>{{0, 1}, Watch::kTold}));
}

TEST_F(ScriptRunnerTest, LeftRunningItOutlivesUsUnlessItHasToEndWithUs) {
  PutProgram("captoria-run", "echo $$ >id; exec sleep 100");
  for (const bool ends_with_us : {false, true}) {
    folder_.Put("id", "");
    const pid_t us = ::fork();
    if (us == 0) {
      Start(ShowStyle::Hidden, ends_with_us)->LeaveRunning();
      Id();
      ::_exit(0);
    }
    EXPECT_EQ(::waitpid(us, nullptr, 0), us);
    const std::string id = Id();
    EXPECT_TRUE(Soon([&] { return IsOver(id) == ends_with_us; }));
    if (!ends_with_us) ::kill(std::stoi(id), SIGKILL);
  }
}

TEST_F(ScriptRunnerTest, AWindowIsOpenedWhereOneCanBe) {
  struct Case {
    const char* name;
    ShowStyle show;
    std::map<std::string, std::string> variables;
    const char* program;
    const char* started;
  };
  const std::string path = folder_.Path();
  const std::string ours = " -e " + folder_.File("captoria-run") + " " + folder_.File("divxmux.bat\n");
  PutProgram("captoria-run", "echo captoria-run >>started");
  for (const auto& [name, show, variables, program, started] :
       {Case{"no terminal", ShowStyle::Normal, {{"PATH", path}, {"DISPLAY", ":0"}}, "aterm", "captoria-run\n"},
        Case{"hidden", ShowStyle::Hidden, {{"PATH", path}, {"DISPLAY", ":0"}}, "xterm", "captoria-run\n"},
        Case{"no desktop", ShowStyle::Normal, {{"PATH", path}, {"DISPLAY", ""}}, "xterm", "captoria-run\n"},
        Case{"one of X", ShowStyle::MinimizedNoFocus, {{"PATH", path}, {"DISPLAY", ":0"}}, "xterm", "xterm"},
        Case{"the user's own",
             ShowStyle::Maximized,
             {{"PATH", path}, {"WAYLAND_DISPLAY", "wayland-0"}},
             "x-terminal-emulator",
             "x-terminal-emulator"}}) {
    SCOPED_TRACE(name);
    variables_ = variables;
    folder_.Put("started", "");
    PutProgram(program, "echo ${0##*/} $* >>started; exit 3");
    Watch watch(folder_);
    const bool window = std::string{started} != "captoria-run\n";
    EXPECT_EQ(Start(show)->Wait(watch), window ? 3 : 0) << "a terminal that fails is not waited for any longer";
    EXPECT_EQ(folder_.Get("started"), window ? started + ours : started);
  }
}

// The lock is taken as captoria-run takes it: before the log has its name.
TEST_F(ScriptRunnerTest, AScriptHandedOverIsWaitedForToItsEnd) {
  PutProgram("x-terminal-emulator", "shift; \"$@\" & exit 0");
  PutProgram("captoria-run", std::string{"sleep 0.3; exec 9>new; flock 9; mv new divxmux.log; "} + kTellAndWait);
  folder_.Put("divxmux.log", "of another day");
  Watch watch(folder_);
  EXPECT_EQ(Start(ShowStyle::Normal)->Wait(watch), 0) << "the status of what was handed over is not known";
  EXPECT_TRUE(FileExists(folder_.File("finished")));
}

TEST_F(ScriptRunnerTest, SaysWhatItCannotStart) {
  CaptoriaRun runner(folder_.Path(), [&](const std::string& name) { return variables_[name]; });
  const auto without = runner.Start({.script = folder_.File("divxmux.bat")});
  ASSERT_FALSE(without);
  EXPECT_EQ(without.error().kind, ErrorKind::NotFound);
  EXPECT_THAT(without.error().message, HasSubstr(folder_.File("captoria-run: is missing")));

  PutProgram("captoria-run", "");
  PutProgram("xterm", "touch started");
  std::filesystem::create_directory(folder_.File("divxmux.log"));
  const auto old_log = runner.Start({.script = folder_.File("divxmux.bat"), .show = ShowStyle::Normal});
  ASSERT_FALSE(old_log);
  EXPECT_EQ(old_log.error().kind, ErrorKind::Unwritable);
  EXPECT_THAT(old_log.error().message, HasSubstr("divxmux.log: cannot be removed: "));
  EXPECT_FALSE(FileExists(folder_.File("started")));
}

}  // namespace
}  // namespace captoria
