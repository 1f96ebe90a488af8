// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/conversion.h"

#include <filesystem>
#include <utility>

#include "base/path_text.h"
#include "base/utf8.h"
#include "pipeline/bitmap_job.h"
#include "pipeline/mux_script_text.h"
#include "platform/file_stamp.h"
#include "platform/files.h"
#include "script/tool_log.h"

namespace captoria {
namespace {

constexpr const char* kScriptName = "divxmux.bat";
constexpr const char* kProgressName = "divxmux.progress";

// One conversion, from its own temporary folder on.
class Conversion {
 public:
  Conversion(const ConversionPlan& plan, const std::shared_ptr<FontCollection>& fonts, ScriptRunner& scripts,
             WorkMonitor& monitor, TempFolder temp)
      : plan_(plan),
        fonts_(fonts),
        scripts_(scripts),
        monitor_(monitor),
        temp_(std::move(temp)),
        script_{.program_folder = plan.program_folder,
                .temp_folder = temp_.Path(),
                .form = plan.form,
                .pal_mode1 = plan.pal_mode1,
                .pause = plan.pause,
                .avi_path = plan.video,
                .streams = plan.streams,
                .tracks = plan.tracks,
                .output{}},
        outcome_{.film{}, .findings = plan.findings} {}

  Outcome Run() {
    outcome_.film = Make();
    if (!outcome_.left_running) temp_.Clean(plan_.clean_up);
    return std::move(outcome_);
  }

 private:
  Result<std::string> Make() {
    auto output = temp_.ClaimOutput(
        [this](const NameTaken& in_making) { return OutputPath(plan_.video, plan_.replace, in_making); });
    if (!output) return output;
    script_.output = std::move(*output);
    if (auto checked = CheckNames(script_); !checked) return tl::unexpected(checked.error());
    if (auto copied = CopyTools(); !copied) return tl::unexpected(copied.error());
    if (auto drawn = DrawBitmaps(); !drawn) return tl::unexpected(drawn.error());
    return CreateBat();
  }

  Result<void> CopyTools() {
    if (auto copied = CopyTool(Tool::DivXMux, temp_, plan_.muxer); !copied) return copied;
    auto copied = CopyTool(Tool::BmpToXSub, temp_, plan_.converter);
    const bool needed = plan_.form == ListForm::Converter;
    return !copied && !needed && copied.error().kind == ErrorKind::NotFound ? Result<void>{} : copied;
  }

  Result<void> DrawBitmaps() {
    const BitmapJob job{.tracks = plan_.tracks,
                        .bitmap = plan_.bitmap,
                        .frame_height = plan_.frame_height,
                        .form = plan_.form,
                        .system = plan_.system,
                        .folder = temp_.Path(),
                        .threads = plan_.threads};
    const auto progress = monitor_.BeginWork(Work::Bitmaps);
    const auto report = CreateBitmaps(fonts_, job, *progress);
    if (!report) return tl::unexpected(report.error());
    if (report->missing.empty()) return {};
    std::string text = "no installed font has";
    for (const char32_t character : report->missing) text += " " + CodePointName(character);
    outcome_.findings.push_back({.kind = FindingKind::MissingGlyph, .file = plan_.video, .message = text});
    return {};
  }

  Result<std::string> CreateBat() {
    const std::string script = temp_.File(kScriptName);
    if (auto removed = RemoveOld(); !removed) return tl::unexpected(removed.error());
    if (auto written = WriteWholeFile(script, TextOf(script_), Sync::No); !written) {
      return tl::unexpected(written.error());
    }
    const FileStamp before = FileStamp::Of(script_.output);
    auto running = scripts_.Start({.script = script,
                                   .show = plan_.show,
                                   .progress_file = temp_.File(kProgressName),
                                   .ends_with_us = plan_.waits});
    if (!running) return tl::unexpected(running.error());
    if (!plan_.waits) {
      (*running)->LeaveRunning();
      outcome_.left_running = true;
      return script_.output;
    }
    const auto progress = monitor_.BeginWork(Work::Film);
    const auto ended = (*running)->Wait(*progress);
    if (!ended) return tl::unexpected(ended.error());
    return Judge(before, *ended);
  }

  // Deletes leftovers: a file from an earlier run could be mistaken for this run's output.
  Result<void> RemoveOld() const {
    std::vector<std::string> names{kScriptName, TempFolder::kLogName, kProgressName};
    for (int i = 0; i < static_cast<int>(plan_.tracks.size()); ++i) names.push_back(XsubFileName(i));
    for (const std::string& name : names) {
      std::error_code error;
      std::filesystem::remove(temp_.File(name), error);
      if (error) {
        return Failure(ErrorKind::Unwritable, temp_.File(name) + ": cannot be deleted: " + error.message());
      }
    }
    return {};
  }

  // The converter names its list, which the user never sees: the finding is about the subtitle file that the list was
  // made from.
  Finding OfSubtitleFile(Finding finding) const {
    for (std::size_t i = 0; i < plan_.tracks.size(); ++i) {
      if (GetFileNameOnly(finding.file) != ListFileName(static_cast<int>(i))) continue;
      finding.file = plan_.tracks[i].path;
      finding.line = 0;
    }
    return finding;
  }

  // The film counts as made if its file is new or changed during the run.
  Result<std::string> Judge(const FileStamp& before, int status) {
    outcome_.tools_ended = true;
    const FileStamp after = FileStamp::Of(script_.output);
    ToolLog log = ReadToolLog(temp_.File(TempFolder::kLogName));
    for (const Finding& finding : log.findings) outcome_.findings.push_back(OfSubtitleFile(finding));
    if (after.Exists() && after != before) return script_.output;
    std::string text = script_.output + ": was not made: ";
    text += status == 0 ? "the tools left no film behind" : "a tool failed";
    for (const std::string& line : log.last_lines) text += "\n" + line;
    outcome_.last_lines = std::move(log.last_lines);
    return Failure(ErrorKind::Damaged, text);
  }

  const ConversionPlan& plan_;
  const std::shared_ptr<FontCollection>& fonts_;
  ScriptRunner& scripts_;
  WorkMonitor& monitor_;
  TempFolder temp_;
  MuxScript script_;
  Outcome outcome_;
};

}  // namespace

Outcome Convert(const ConversionPlan& plan, const std::shared_ptr<FontCollection>& fonts, ScriptRunner& scripts,
                WorkMonitor& monitor) {
  auto temp = TempFolder::Open(plan.program_folder);
  if (!temp) return {.film = tl::unexpected(temp.error()), .findings = plan.findings};
  return Conversion(plan, fonts, scripts, monitor, std::move(*temp)).Run();
}

}  // namespace captoria
