// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <functional>

#include "platform/process.h"
#include "tests/support/other_process.h"
#include "tests/support/test_folder.h"

namespace captoria {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

class StopWhen final : public JobProgress {
 public:
  explicit StopWhen(std::function<bool()> happened) : happened_(std::move(happened)) {}
  bool Report(std::size_t, std::size_t) override { return !happened_(); }

 private:
  std::function<bool()> happened_;
};

class ProcessTest : public testing::Test {
 protected:
  ProcessStart Shell(const std::string& script) const {
    return {.program = "/bin/sh",
            .arguments = {"-c", script},
            .folder = folder_.Path(),
            .environment = {},
            .log_file = folder_.File("log"),
            .shows_output = false,
            .ends_with_us = false};
  }
  Result<int> Run(const ProcessStart& start) {
    auto process = Process::Start(start);
    if (!process) return tl::unexpected(process.error());
    NoProgress unwatched;
    return process->Wait(unwatched);
  }
  std::string Log() const { return folder_.Get("log"); }

  TestFolder folder_;
};

TEST_F(ProcessTest, ArgumentsArriveAsTheyStand) {
  ProcessStart start = Shell("");
  start.program = FindOnPath("printf", ProcessEnvironment()).value();
  start.arguments = {"%s|", "a b", "", "$(touch hurt)", "`touch hurt`", "; touch hurt", "*", "\"'\\", "\xFF\n"};
  EXPECT_EQ(Run(start), 0);
  EXPECT_EQ(Log(), "a b||$(touch hurt)|`touch hurt`|; touch hurt|*|\"'\\|\xFF\n|");
  EXPECT_FALSE(FileExists(folder_.File("hurt")));
}

TEST_F(ProcessTest, GetsFolderEnvironmentAndNothingElseOfOurs) {
  const int leaked = ::open("/dev/null", O_RDONLY);  // not marked as closing with an exec
  ProcessStart start = Shell("pwd -P; echo $A,$B,${HOME:+kept}; cat; [ -e /proc/$$/fd/" + std::to_string(leaked) +
                             " ] && echo leaked; true");
  ::setenv("A", "old", 1);
  start.environment = {"A=1=2", "B="};
  EXPECT_EQ(Run(start), 0);
  EXPECT_EQ(Log(), std::filesystem::canonical(folder_.Path()).string() + "\n1=2,,kept\n");
  start.program = FindOnPath("env", ProcessEnvironment()).value();  // a shell would hide a variable that is there twice
  start.arguments.clear();
  EXPECT_EQ(Run(start), 0);
  EXPECT_THAT(Log(), testing::Not(HasSubstr("\nA=old\n")));
  ::unsetenv("A");
  ::close(leaked);
}

TEST_F(ProcessTest, StatusIsItsOwnOrThatOfItsSignal) {
  for (const auto& [end, status] : {std::pair{"exit 0", 0}, std::pair{"exit 7", 7}, std::pair{"kill -9 $$", 128 + 9}}) {
    EXPECT_EQ(Run(Shell(end)), status);
  }
}

TEST_F(ProcessTest, OutputGoesWhereItIsAskedFor) {
  for (const auto& [logged, shown] :
       {std::pair{true, true}, std::pair{true, false}, std::pair{false, true}, std::pair{false, false}}) {
    ProcessStart start = Shell("echo said; echo wrong >&2");
    folder_.Put("log", "before\n");
    if (!logged) start.log_file.clear();
    start.shows_output = shown;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(Run(start), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), shown ? "said\n" : "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), shown ? "wrong\n" : "");
    EXPECT_EQ(Log(), logged ? "before\nsaid\nwrong\n" : "before\n");
  }
}

TEST_F(ProcessTest, MuchOutputOfBothKindsIsPassedOnWhole) {
  ProcessStart start = Shell("head -c 3000000 /dev/zero & head -c 3000000 /dev/zero >&2; wait");
  start.shows_output = true;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(Run(start), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout().size(), 3'000'000u);
  EXPECT_EQ(testing::internal::GetCapturedStderr().size(), 3'000'000u);
  EXPECT_EQ(Log().size(), 6'000'000u);
}

TEST_F(ProcessTest, SaysWhyItCannotBeStarted) {
  const auto make = [&](const std::string& name, const std::string& content, mode_t mode) {
    ::chmod(folder_.Put(name, content).c_str(), mode);
    ProcessStart start = Shell("");
    start.program = folder_.File(name);
    return start;
  };
  ProcessStart no_folder = Shell(""), no_log = Shell(""), zero_byte = Shell(""), long_argument = Shell("");
  no_folder.folder = folder_.File("none");
  no_log.log_file = folder_.File("none/log");
  zero_byte.arguments = {std::string("a\0b", 3)};
  long_argument.arguments = {std::string(std::size_t{1} << 22, 'a')};
  ProcessStart missing = Shell("");
  missing.program = folder_.File("none");

  struct Case {
    const ProcessStart start;
    ErrorKind kind;
    std::string message;
  };
  for (const auto& [start, kind, message] :
       {Case{missing, ErrorKind::NotFound, "none: cannot be started: No such file"},
        Case{no_folder, ErrorKind::NotFound, "none: cannot be entered: No such file"},
        Case{no_log, ErrorKind::Unwritable, "none/log: cannot be written: No such file"},
        Case{zero_byte, ErrorKind::Unsupported, "zero byte"},
        Case{long_argument, ErrorKind::TooLarge, "/bin/sh: cannot be started: Argument list too long"},
        Case{make("plain", "#!/bin/sh\n", 0600), ErrorKind::Unreadable, "plain: cannot be started: Permission denied"},
        Case{make("text", "echo hurt\n", 0700), ErrorKind::Unsupported, "text: cannot be started: it is not a program"},
        Case{make("loose", "#!/none/sh\n", 0700), ErrorKind::NotFound, "loose: cannot be started: its interpreter"}}) {
    const auto status = Run(start);
    ASSERT_FALSE(status) << message;
    EXPECT_EQ(status.error().kind, kind) << message;
    EXPECT_THAT(status.error().message, HasSubstr(message));
  }
}

TEST_F(ProcessTest, CancellingEndsItAndWhatItStarted) {
  using Case = std::pair<std::string, std::string>;
  for (const auto& [before, after] : {Case{"", ""}, Case{"trap '' TERM; ", ""}, Case{"", "kill -STOP $$; "}}) {
    SCOPED_TRACE(before + after);
    folder_.Put("started", "");
    ProcessStart start = Shell(before + "sleep 100 & echo $$ $! >started; " + after + "wait");
    start.shows_output = before.empty();
    auto process = Process::Start(start);
    ASSERT_TRUE(process);
    StopWhen both_run([&] { return folder_.Get("started").ends_with('\n'); });
    EXPECT_EQ(process->Wait(both_run).error().kind, ErrorKind::Cancelled);
    const std::string ids = folder_.Get("started");
    const auto blank = ids.find(' ');
    EXPECT_TRUE(IsOver(ids.substr(0, blank)));
    EXPECT_TRUE(Soon([&] { return IsOver(ids.substr(blank + 1, ids.size() - blank - 2)); }));
  }
}

TEST_F(ProcessTest, WhatItLeavesBehindDoesNotHoldUpTheWait) {
  ProcessStart start = Shell("sleep 100 & echo $!");
  start.shows_output = true;
  testing::internal::CaptureStdout();
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Run(start), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 50s);
  testing::internal::GetCapturedStdout();
  const std::string sleeper = Log();
  EXPECT_FALSE(IsOver(sleeper.substr(0, sleeper.size() - 1)));
  ::kill(std::stoi(sleeper), SIGKILL);
}

TEST_F(ProcessTest, EndsWithItsOwnerUnlessLeftRunning) {
  const auto start = Shell("echo $$ >>started; exec sleep 100");
  for (const bool left : {false, true}) {
    folder_.Put("started", "");
    {
      auto process = Process::Start(start);
      ASSERT_TRUE(process);
      ASSERT_TRUE(Soon([&] { return folder_.Get("started").ends_with('\n'); }));
      if (left) std::move(*process).LeaveRunning();
    }
    const std::string id = std::to_string(std::stoi(folder_.Get("started")));
    EXPECT_EQ(IsOver(id), !left);
    if (left) {
      ::kill(std::stoi(id), SIGKILL);
      EXPECT_TRUE(Soon([&] { return !FolderExists("/proc/" + id); })) << "its exit status is taken";
    }
  }
}

TEST(FindOnPath, TakesTheFirstThatCanBeRun) {
  const TestFolder folder;
  for (const char* part : {"a", "b", "c"}) std::filesystem::create_directory(folder.File(part));
  std::filesystem::create_directory(folder.File("a/tool"));
  folder.Put("b/tool", "");
  ::chmod(folder.Put("c/tool", "").c_str(), 0700);
  const auto path = [&](const std::string& folders) {
    return FindOnPath("tool", [folders](const std::string&) { return folders; });
  };
  EXPECT_EQ(path(":.:" + folder.File("a") + ":" + folder.File("b") + "::" + folder.File("c")), folder.File("c/tool"));
  EXPECT_EQ(path(folder.File("a")), std::nullopt);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_EQ(path("./c"), std::nullopt) << "not the folder that somebody happens to be in";
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace captoria
