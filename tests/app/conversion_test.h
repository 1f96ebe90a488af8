// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A workspace with a folder, a small film and tools that only pretend to work.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/make_divx.h"
#include "app/workspace.h"
#include "base/path_text.h"
#include "platform/files.h"
#include "script/mux_script.h"
#include "tests/support/avi_maker.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {

inline constexpr const char* kTwoCues =
    "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n2\n00:00:03,000 --> 00:00:04,000\nBye\n";

// Reads the script and, instead of running it, writes the film that it names.
class FakeScripts final : public ScriptRunner {
 public:
  Result<std::unique_ptr<RunningScript>> Start(const ScriptStart& start) override {
    starts.push_back(start);
    scripts.push_back(ReadWholeFile(start.script).value_or(""));
    const auto steps = ParseMuxScript(scripts.back());
    EXPECT_TRUE(steps);
    std::string output;
    for (const MuxScriptStep& step : *steps) {
      if (step.kind == MuxScriptStep::Kind::RunTool) output = step.words.back();
    }
    class Running final : public RunningScript {
     public:
      Running(FakeScripts& owner, std::string output) : owner_(owner), output_(std::move(output)) {}
      Result<int> Wait(JobProgress& progress) override {
        if (!progress.Report(1, 2)) return Failure(ErrorKind::Cancelled, "stopped");
        return owner_.run(output_);
      }
      void LeaveRunning() override { owner_.left_running = true; }

     private:
      FakeScripts& owner_;
      std::string output_;
    };
    return std::make_unique<Running>(*this, output);
  }

  std::vector<ScriptStart> starts;
  std::vector<std::string> scripts;
  bool left_running = false;
  std::function<int(const std::string& output)> run = [](const std::string& output) {
    EXPECT_TRUE(WriteWholeFile(output, "film", Sync::No));
    return 0;
  };
};

class FakeDocuments final : public DocumentOpener {
 public:
  Result<void> Open(const std::string& path) override {
    opened.push_back(path);
    return {};
  }
  std::vector<std::string> opened;
};

class ConversionTest : public testing::Test {
 protected:
  ConversionTest() {
    folder_.Put("data/DivXMux.exe", "muxer");
    folder_.Put("data/bmptoxsub.exe", "converter");
  }

  std::string PutFilm(const std::string& name,
                      const std::string& streams = avi_maker::VideoStream() + avi_maker::AudioStream()) const {
    return folder_.Put(name, avi_maker::Film(avi_maker::Content(), avi_maker::Headers(streams)));
  }

  // `work` on the same project and settings, with nobody watching.
  template <typename Work>
  auto Unattended(const Work& work) {
    Workspace alone(folders_, workspace_.preferences, prompts_, view_, Attendance::Nobody);
    alone.project = workspace_.project;
    return work(alone);
  }

  // A file of the temporary folder.
  static std::string Temporary(const std::string& name) { return JoinPath("data/tmp", name); }

  // What is in the temporary folder, apart from its marker.
  std::vector<std::string> Left() const { return ListFiles(folder_.File("data/tmp"), "?*.*"); }

  TestFolder folder_;
  ScriptedPrompts prompts_;
  QuietView view_;
  FakeScripts scripts_;
  FakeDocuments documents_;
  ConversionBackend backend_{.convert = [this](const ConversionPlan& plan,
                                               const auto& fonts) { return Convert(plan, fonts, scripts_, view_); },
                             .documents = documents_};
  const ProgramFolders folders_{.executable = folder_.File("data"), .data = folder_.File("data")};
  Workspace workspace_{folders_, prompts_, view_};
};

}  // namespace captoria
