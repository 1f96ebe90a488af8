// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Runs one of our programs as a user's shell would and keeps what it said.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "tests/support/test_folder.h"

namespace captoria {

struct ProgramRun {
  int status = -1;  // exit status, or 128 + the signal that ended it
  std::string out;
  std::string err;
};

// `name` is a program of the program folder; it gets an empty standard input that is no terminal. With `out_file` its
// standard output goes there instead of into the result.
inline ProgramRun RunProgram(const std::string& name, const std::vector<std::string>& arguments,
                             const std::string& out_file = {}) {
  const TestFolder folder;
  const std::string program = std::string{CAPTORIA_BIN} + "/" + name;
  const std::string out = out_file.empty() ? folder.File("out") : out_file;
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  const pid_t child = fork();
  if (child == 0) {
    const auto redirect = [](int to, const std::string& path, int flags) {
      if (dup2(open(path.c_str(), flags, 0600), to) < 0) _exit(127);
    };
    redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
    redirect(STDOUT_FILENO, out, O_WRONLY | O_CREAT);
    redirect(STDERR_FILENO, folder.File("err"), O_WRONLY | O_CREAT);
    execv(program.c_str(), argv.data());
    _exit(127);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  ProgramRun run;
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  if (out_file.empty()) run.out = folder.Get("out");
  run.err = folder.Get("err");
  return run;
}

}  // namespace captoria
