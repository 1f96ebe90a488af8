// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/make_divx.h"

#include <algorithm>
#include <filesystem>
#include <thread>
#include <utility>

#include "base/utf8.h"
#include "pipeline/bitmap_job.h"
#include "pipeline/mux_script_text.h"
#include "pipeline/temp_folder.h"
#include "pipeline/tool_copies.h"
#include "platform/file_stamp.h"
#include "platform/files.h"
#include "script/tool_log.h"

namespace captoria {
namespace {

constexpr const char* kScriptName = "divxmux.bat";
constexpr const char* kProgressName = "divxmux.progress";

// Tells the user why nothing begins, and the caller as well.
tl::unexpected<Error> Refuse(Session& session, ErrorKind kind, const Message& message, const std::string& reason) {
  session.prompts.ShowMessage(kProgramTitle, session.TextFor(message));
  return Failure(kind, reason);
}

bool HasUnknownStreams(const Session& session) {
  return std::ranges::any_of(session.video.streams,
                             [](const StreamRow& row) { return row.type == StreamType::Unknown; });
}

Result<void> AskToRemoveUnknown(Session& session) {
  if (session.prompts.AskYesNo(kProgramTitle, session.TextFor(messages::kUnknownStreams))) return {};
  return Failure(ErrorKind::Unsupported,
                 session.video.AviPath + ": has streams of an unknown kind, which would have to be removed");
}

Result<void> CheckInputs(Session& session) {
  const std::string& video = session.video.AviPath;
  if (video.empty() || !FileExists(video)) {
    return Refuse(session, ErrorKind::NotFound, messages::kLoadAvi,
                  video.empty() ? "no video is open" : video + ": there is no such file");
  }
  if (HasSubtitles(session)) return {};
  if (!HasUnknownStreams(session)) {
    return Refuse(session, ErrorKind::NotFound, messages::kLoadSubtitle, video + ": no subtitle file is loaded for it");
  }
  return AskToRemoveUnknown(session);
}

ShowStyle ShowStyleOf(const Settings& settings) {
  constexpr ShowStyle kStyles[]{ShowStyle::Normal, ShowStyle::Minimized, ShowStyle::Maximized, ShowStyle::NormalNoFocus,
                                ShowStyle::MinimizedNoFocus};
  if (!settings.ShowDos) return ShowStyle::Hidden;
  const auto index = static_cast<std::size_t>(settings.ShowDosCombo);
  return index < std::size(kStyles) ? kStyles[index] : ShowStyle::Normal;
}

std::string LastLines(const ToolLog& log) {
  std::string text;
  for (const std::string& line : log.last_lines) text += "\n" + line;
  return text;
}

// One conversion, from its own temporary folder on.
class Conversion {
 public:
  Conversion(Session& session, const Outside& outside, const MakeOptions& options, TempFolder temp)
      : session_(session), outside_(outside), options_(options), temp_(std::move(temp)) {
    const Settings& settings = session_.settings;
    script_ = {.program_folder = session_.folders.data,
               .temp_folder = temp_.Path(),
               .form = settings.UseBmpToXSub ? ListForm::Converter : ListForm::Mux,
               .pal_mode1 = settings.UsePalMode1,
               .pause = !options_.is_batch && settings.ShowDos && settings.ShowDosPause,
               .avi_path = session_.video.AviPath,
               .streams = session_.video.streams,
               .tracks = session_.tracks.Open(),
               .output{}};
  }

  Result<MadeDivX> Run() {
    auto made = Make();
    if (made && !made->finished) return made;
    if (!options_.keep_temp) {
      const Settings& settings = session_.settings;
      temp_.Clean({.everything = options_.is_batch || settings.deleteTemp,
                   .bitmaps = settings.deleteBmp,
                   .others = settings.deleteOther});
    }
    return made;
  }

 private:
  Result<MadeDivX> Make() {
    auto output = temp_.ClaimOutput([this](const NameTaken& in_making) {
      return OutputPath(script_.avi_path, session_.settings.ReplaceDivX, in_making);
    });
    if (!output) return tl::unexpected(output.error());
    script_.output = std::move(*output);
    if (auto checked = CheckNames(script_); !checked) return tl::unexpected(checked.error());
    if (auto copied = CopyTools(); !copied) return tl::unexpected(copied.error());
    if (auto drawn = DrawBitmaps(); !drawn) return tl::unexpected(drawn.error());
    return CreateBat();
  }

  Result<void> CopyTools() {
    const auto locate = [this](Tool tool) { return ToolPath(session_, tool, outside_.ask_for_tool); };
    const std::vector<std::string> folders{session_.folders.data, session_.folders.executable};
    if (auto copied = CopyTool(Tool::DivXMux, temp_, folders, locate); !copied) return copied;
    // Without a use for it, the converter is copied where it lies at hand and not asked for.
    const auto no_place = [](Tool) { return std::optional<std::string>{}; };
    const bool wanted = session_.settings.UseBmpToXSub;
    auto copied = wanted ? CopyTool(Tool::BmpToXSub, temp_, folders, locate)
                         : CopyTool(Tool::BmpToXSub, temp_, folders, no_place);
    return !copied && !wanted && copied.error().kind == ErrorKind::NotFound ? Result<void>{} : copied;
  }

  Result<void> DrawBitmaps() {
    const Settings& settings = session_.settings;
    const bool mux = script_.form == ListForm::Mux;
    const BitmapJob job{.tracks = session_.tracks.Open(),
                        .bitmap = session_.Frame(),
                        .frame_height = mux && settings.ForceVideoHeight != 0 ? settings.ForceVideoHeight
                                                                              : session_.video.VideoHeight(),
                        .form = script_.form,
                        .system = settings.ForceVideoHeight > 0 ? VideoSystem::Pal : session_.video.VideoSystem,
                        .folder = temp_.Path(),
                        .threads = std::max(1U, std::thread::hardware_concurrency())};
    const auto fonts = session_.Fonts();
    if (!fonts) return tl::unexpected(fonts.error());
    const auto progress = session_.view.BeginWork(Work::Bitmaps);
    const auto report = CreateBitmaps(*fonts, job, *progress);
    if (!report) return tl::unexpected(report.error());
    WarnOfMissing(*report);
    return {};
  }

  void WarnOfMissing(const FontReport& report) {
    if (report.missing.empty()) return;
    std::string text = script_.avi_path + ": no installed font has";
    for (const char32_t character : report.missing) text += " " + CodePointName(character);
    session_.view.Warn(text);
  }

  Result<MadeDivX> CreateBat() {
    if (HasUnknownStreams(session_)) {
      if (auto asked = AskToRemoveUnknown(session_); !asked) return tl::unexpected(asked.error());
    }
    const std::string script = temp_.File(kScriptName);
    if (auto removed = RemoveOld(); !removed) return tl::unexpected(removed.error());
    if (auto written = WriteWholeFile(script, TextOf(script_), Sync::No); !written) {
      return tl::unexpected(written.error());
    }
    const FileStamp before = FileStamp::Of(script_.output);
    const bool waits = options_.is_batch || session_.settings.WaitToEndDos;
    auto running = outside_.scripts.Start({.script = script,
                                           .show = ShowStyleOf(session_.settings),
                                           .progress_file = temp_.File(kProgressName),
                                           .ends_with_us = waits});
    if (!running) return tl::unexpected(running.error());
    if (!waits) {
      (*running)->LeaveRunning();
      return MadeDivX{.output = script_.output, .finished = false};
    }
    auto ended = Await(**running);
    if (!ended) return tl::unexpected(ended.error());
    return Tell(before, *ended);
  }

  // What an earlier run left under names that this run's tools make would be taken for theirs.
  Result<void> RemoveOld() const {
    std::vector<std::string> names{kScriptName, TempFolder::kLogName, kProgressName};
    for (int i = 0; i < session_.tracks.Count(); ++i) names.push_back(XsubFileName(i));
    for (const std::string& name : names) {
      std::error_code error;
      std::filesystem::remove(temp_.File(name), error);
      if (error) {
        return Failure(ErrorKind::Unwritable, temp_.File(name) + ": cannot be deleted: " + error.message());
      }
    }
    return {};
  }

  Result<int> Await(RunningScript& running) {
    const auto progress = session_.view.BeginWork(Work::Film);
    return running.Wait(*progress);
  }

  Result<MadeDivX> Tell(const FileStamp& before, int status) {
    const FileStamp after = FileStamp::Of(script_.output);
    const ToolLog log = ReadToolLog(temp_.File(TempFolder::kLogName));
    const bool made = after.Exists() && after != before;
    for (const Finding& finding : log.findings) session_.view.Warn(Describe(finding));
    if (!options_.is_batch) {
      session_.prompts.ShowMessage(kProgramTitle, made ? session_.TextFor(messages::kFinished)
                                                       : session_.TextFor(messages::kFailed) + LastLines(log));
      if (session_.settings.RunDivX && made) Show();
    }
    if (made) return MadeDivX{.output = script_.output};
    const std::string ended = status == 0 ? "the tools left no film behind" : "a tool failed";
    return Failure(ErrorKind::Damaged, script_.output + ": was not made: " + ended + LastLines(log));
  }

  void Show() {
    const auto opened = outside_.documents.Open(script_.output);
    if (!opened) session_.view.Warn(opened.error().message);
  }

  Session& session_;
  const Outside& outside_;
  MakeOptions options_;
  TempFolder temp_;
  MuxScript script_;
};

}  // namespace

bool HasSubtitles(const Session& session) {
  const SubtitleTrack& first = session.tracks.Open().front();
  return first.HasFile() && FileExists(first.path);
}

Result<MadeDivX> MakeFinalDivX(Session& session, const Outside& outside, const MakeOptions& options) {
  if (auto checked = CheckInputs(session); !checked) return tl::unexpected(checked.error());
  auto temp = TempFolder::Open(session.folders.data);
  if (!temp) return tl::unexpected(temp.error());
  return Conversion(session, outside, options, std::move(*temp)).Run();
}

}  // namespace captoria
