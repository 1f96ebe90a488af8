// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "base/path_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

using SteadyTime = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kAskEvery{50};
constexpr std::chrono::seconds kGrace{2};

void CloseIfOpen(int& descriptor) {
  if (const int open = std::exchange(descriptor, -1); open >= 0) ::close(open);
}

std::string_view NameOf(std::string_view variable) { return variable.substr(0, variable.find('=')); }

// Everything the child needs, prepared before the fork. Nothing may be allocated between fork and exec, because another
// thread may have held the allocator's lock at the fork.
class Image {
 public:
  explicit Image(const ProcessStart& start) : folder_(start.folder) {
    std::error_code none;
    const auto path = std::filesystem::absolute(start.program, none);
    program_ = none ? start.program : path.string();
    arguments_.push_back(program_);
    arguments_.insert(arguments_.end(), start.arguments.begin(), start.arguments.end());
    for (char** variable = environ; *variable != nullptr; ++variable) {
      const bool replaced = std::ranges::any_of(
          start.environment, [&](const std::string& ours) { return NameOf(ours) == NameOf(*variable); });
      if (!replaced) environment_.emplace_back(*variable);
    }
    environment_.insert(environment_.end(), start.environment.begin(), start.environment.end());
    for (std::string& text : arguments_) argument_pointers_.push_back(text.data());
    for (std::string& text : environment_) environment_pointers_.push_back(text.data());
    argument_pointers_.push_back(nullptr);
    environment_pointers_.push_back(nullptr);
  }

  // The step that failed.
  enum class Step : int { Prepare, Folder, Execute };
  struct Fault {
    Step step;
    int code;
  };

  // Becomes the program. Returns only on failure.
  Fault Enter() const {
    if (!folder_.empty() && ::chdir(folder_.c_str()) != 0) return {Step::Folder, errno};
    ::execve(program_.c_str(), argument_pointers_.data(), environment_pointers_.data());
    return {Step::Execute, errno};
  }

 private:
  std::string program_, folder_;
  std::vector<std::string> arguments_, environment_;
  std::vector<char*> argument_pointers_, environment_pointers_;
};

// The descriptors that a start opens. Closes those that were not handed on.
struct Descriptors {
  Descriptors() = default;
  Descriptors(const Descriptors&) = delete;
  Descriptors& operator=(const Descriptors&) = delete;
  ~Descriptors() {
    for (int* descriptor : {&log, &nothing, &out[0], &out[1], &err[0], &err[1], &fault[0], &fault[1]}) {
      CloseIfOpen(*descriptor);
    }
  }

  Result<void> Open(const ProcessStart& start) {
    nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    bool made = nothing >= 0 && ::pipe2(fault, O_CLOEXEC) == 0;
    if (!start.log_file.empty()) {
      log = ::open(start.log_file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
      if (log < 0)
        return Failure(ErrorKind::Unwritable, start.log_file + ": cannot be written: " + std::strerror(errno));
      if (start.shows_output) made = made && ::pipe2(out, O_CLOEXEC) == 0 && ::pipe2(err, O_CLOEXEC) == 0;
    }
    if (!made) return Failure(ErrorKind::Unreadable, start.program + ": cannot be started: " + std::strerror(errno));
    return {};
  }

  // In the child: connects its three standard streams.
  bool Connect(bool shows_output) const {
    const int elsewhere = log >= 0 ? log : nothing;
    const int to_out = out[1] >= 0 ? out[1] : shows_output ? STDOUT_FILENO : elsewhere;
    const int to_err = err[1] >= 0 ? err[1] : shows_output ? STDERR_FILENO : elsewhere;
    return ::dup2(nothing, STDIN_FILENO) >= 0 && ::dup2(to_out, STDOUT_FILENO) >= 0 &&
           ::dup2(to_err, STDERR_FILENO) >= 0;
  }

  int log = -1;
  int nothing = -1;
  int out[2] = {-1, -1};
  int err[2] = {-1, -1};
  int fault[2] = {-1, -1};  // carries the reason if the start fails; a successful exec closes it
};

// Runs in the child, where only async-signal-safe calls are allowed.
Image::Fault BecomeProgram(const Image& image, const ProcessStart& start, const Descriptors& descriptors, pid_t us) {
  constexpr Image::Step kPrepare = Image::Step::Prepare;
  if (::setpgid(0, 0) != 0 || !descriptors.Connect(start.shows_output)) return {kPrepare, errno};
#ifdef PR_SET_PDEATHSIG
  if (start.ends_with_us) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != us) ::_exit(1);  // our process ended before prctl
  }
#endif
  sigset_t none;
  sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::signal(SIGPIPE, SIG_DFL);
#ifdef CLOSE_RANGE_CLOEXEC
  ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
#endif
  return image.Enter();
}

Error Describe(const ProcessStart& start, Image::Fault fault) {
  const std::string reason = std::strerror(fault.code);
  const bool missing = fault.code == ENOENT || fault.code == ENOTDIR;
  if (fault.step == Image::Step::Folder) {
    return {missing ? ErrorKind::NotFound : ErrorKind::Unreadable, start.folder + ": cannot be entered: " + reason};
  }
  if (missing && FileExists(start.program)) {
    return {ErrorKind::NotFound, start.program + ": cannot be started: its interpreter or loader is missing"};
  }
  if (fault.code == ENOEXEC) {
    return {ErrorKind::Unsupported, start.program + ": cannot be started: it is not a program for this system"};
  }
  if (fault.code == E2BIG) return {ErrorKind::TooLarge, start.program + ": cannot be started: " + reason};
  return {missing ? ErrorKind::NotFound : ErrorKind::Unreadable, start.program + ": cannot be started: " + reason};
}

int OpenProcessHandle([[maybe_unused]] pid_t id) {
#ifdef SYS_pidfd_open
  return static_cast<int>(::syscall(SYS_pidfd_open, id, 0));
#else
  return -1;
#endif
}

void WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return;  // a closed terminal or a full disk must not stop the program
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool HoldsZeroByte(const ProcessStart& start) {
  const auto holds = [](const std::string& text) { return text.find('\0') != text.npos; };
  return holds(start.program) || holds(start.folder) || holds(start.log_file) ||
         std::ranges::any_of(start.arguments, holds) || std::ranges::any_of(start.environment, holds);
}

}  // namespace

Result<Process> Process::Start(const ProcessStart& start) {
  if (HoldsZeroByte(start)) {
    return Failure(ErrorKind::Unsupported, start.program + ": cannot be started: an argument contains a zero byte");
  }
  Descriptors descriptors;
  if (auto opened = descriptors.Open(start); !opened) return tl::unexpected(opened.error());
  const Image image(start);
  const pid_t us = ::getpid();
  const pid_t id = ::fork();
  if (id == 0) {
    const Image::Fault fault = BecomeProgram(image, start, descriptors, us);
    [[maybe_unused]] const ssize_t told = ::write(descriptors.fault[1], &fault, sizeof(fault));
    ::_exit(127);
  }
  if (id < 0) return tl::unexpected(Describe(start, {Image::Step::Prepare, errno}));

  CloseIfOpen(descriptors.fault[1]);
  Image::Fault fault{};
  ssize_t got = 0;
  do got = ::read(descriptors.fault[0], &fault, sizeof(fault));
  while (got < 0 && errno == EINTR);
  if (got == sizeof(fault)) {
    ::waitpid(id, nullptr, 0);
    return tl::unexpected(Describe(start, fault));
  }
  const std::array<Stream, 2> streams{{{.from = std::exchange(descriptors.out[0], -1), .to = STDOUT_FILENO},
                                       {.from = std::exchange(descriptors.err[0], -1), .to = STDERR_FILENO}}};
  for (const Stream& stream : streams) {
    if (stream.from >= 0) ::fcntl(stream.from, F_SETFL, O_NONBLOCK);
  }
  return Process(id, OpenProcessHandle(id), std::exchange(descriptors.log, -1), streams);
}

Process::Process(Process&& other) noexcept
    : id_(std::exchange(other.id_, 0)),
      ended_(std::exchange(other.ended_, -1)),
      log_(std::exchange(other.log_, -1)),
      streams_(std::exchange(other.streams_, {})) {}

Process::~Process() {
  Terminate();
  for (Stream& stream : streams_) CloseIfOpen(stream.from);
  CloseIfOpen(ended_);
  CloseIfOpen(log_);
}

Result<int> Process::Wait(JobProgress& progress) {
  if (id_ == 0) return Failure(ErrorKind::NotFound, "the process was already waited for");
  SteadyTime::time_point ask{};
  while (!HasEnded()) {
    if (const auto now = SteadyTime::now(); now >= ask) {
      ask = now + kAskEvery;
      if (!progress.Report(0, 1)) {
        Terminate();
        return Failure(ErrorKind::Cancelled, "stopped");
      }
    }
    AwaitOutput(static_cast<int>(kAskEvery.count()));
  }
  return Finish();
}

void Process::Terminate() {
  if (id_ == 0) return;
  ::kill(-id_, SIGTERM);
  ::kill(-id_, SIGCONT);  // a stopped process would not receive it
  for (const auto last = SteadyTime::now() + kGrace; !HasEnded() && SteadyTime::now() < last;) AwaitOutput(20);
  // Its id, and so the id of its group, cannot be reused before we wait for it.
  ::kill(-id_, SIGKILL);
  Finish();
}

void Process::LeaveRunning() && {
  // Somebody has to read its exit status, or it stays in the process table until we end.
  const pid_t id = std::exchange(id_, 0);
  if (id == 0) return;
  try {
    std::thread([id] { ::waitpid(id, nullptr, 0); }).detach();
  } catch (const std::system_error&) {
    return;  // no thread to be had: it stays in the table, which does little harm
  }
}

bool Process::HasEnded() const {
  siginfo_t info{};
  return ::waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid != 0;
}

// Returns early if the process ends or writes output, which is copied.
void Process::AwaitOutput(int milliseconds) {
  std::array<pollfd, 3> events{{{.fd = ended_, .events = POLLIN, .revents = 0},
                                {.fd = streams_[0].from, .events = POLLIN, .revents = 0},
                                {.fd = streams_[1].from, .events = POLLIN, .revents = 0}}};
  if (::poll(events.data(), events.size(), milliseconds) <= 0) return;
  for (std::size_t i = 0; i < streams_.size(); ++i) {
    if (events[i + 1].revents != 0) PassOn(streams_[i]);
  }
}

// False if there is nothing more to read now.
bool Process::PassOn(Stream& stream) {
  if (stream.from < 0) return false;
  std::array<char, 16384> buffer;
  const ssize_t got = ::read(stream.from, buffer.data(), buffer.size());
  if (got > 0) {
    const std::string_view bytes{buffer.data(), static_cast<std::size_t>(got)};
    WriteAll(log_, bytes);
    WriteAll(stream.to, bytes);
    return true;
  }
  if (got == 0) CloseIfOpen(stream.from);
  return got < 0 && errno == EINTR;
}

int Process::Finish() {
  int status = 0;
  while (::waitpid(id_, &status, 0) < 0 && errno == EINTR) {
  }
  id_ = 0;
  // The pipes may still contain its last output. A program that it left running may keep them open and write on for
  // ever, so do not wait here and read no more than a full pipe of the usual size.
  for (Stream& stream : streams_) {
    for (int left = 64; left > 0 && PassOn(stream); --left) {
    }
    CloseIfOpen(stream.from);
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::optional<std::string> FindOnPath(std::string_view name, const Environment& environment) {
  const std::string folders = environment("PATH").value_or("/usr/local/bin:/usr/bin:/bin");
  for (std::string_view rest = folders; !rest.empty();) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    if (!folder.starts_with('/')) continue;  // never run a file of the working folder by accident
    std::string path = JoinPath(folder, name);
    if (FileExists(path) && ::access(path.c_str(), X_OK) == 0) return path;
  }
  return std::nullopt;
}

}  // namespace captoria
