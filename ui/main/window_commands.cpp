// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/window_commands.h"

#include "app/language_commands.h"
#include "app/load_subtitle.h"
#include "app/open_video.h"
#include "base/path_text.h"
#include "localisation/window_texts.h"
#include "media/video/frame_decoder.h"
#include "pipeline/avi_inspection.h"
#include "platform/files.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/ask_for_tool_dialog.h"
#include "ui/dialogs/batch_dialog.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

// A list is converted out of sight; what was noticed is shown at its end.
class UnseenView final : public WorkspaceView {
 public:
  void ShowFinding(const Finding&) override {}
};

}  // namespace

WindowCommands::WindowCommands(Workspace& workspace, JobBar& jobs, QWidget* window)
    : QObject(window),
      workspace_(workspace),
      jobs_(jobs),
      window_(window),
      scripts_(workspace.folders.executable, ProcessEnvironment()),
      backend_{
          .convert = [this](const ConversionPlan& plan, const auto& fonts) { return ConvertBesideWindow(plan, fonts); },
          .documents = documents_,
          .ask_for_tool = [window](Workspace& asking,
                                   Tool tool) { return AskForToolDialog::Ask(asking, tool, window); }} {}

Outcome WindowCommands::ConvertBesideWindow(const ConversionPlan& plan, const std::shared_ptr<FontCollection>& fonts) {
  Outcome outcome;
  jobs_.Run([&] { outcome = Convert(plan, fonts, scripts_, jobs_); });
  return outcome;
}

void WindowCommands::OpenVideo(const QString& path) {
  std::string opened = PathFromQt(path);
  const auto result = OpenAnAviFile(workspace_, opened, {});
  if (result) emit VideoOpened(PathToQt(opened));
}

void WindowCommands::OpenSubtitle(const QString& path) {
  std::string file = PathFromQt(path);
  if (file.empty()) {
    const auto chosen = workspace_.prompts.AskFileToOpen(kProgramTitle, {{"*.srt;*.idx", "*.srt;*.idx"}},
                                                         workspace_.project.current_file);
    if (!chosen) return;
    file = *chosen;
  }
  const auto loaded = OpenSubtitleFile(workspace_, file, {});
  if (loaded) return;
  workspace_.prompts.ShowMessage(kProgramTitle, loaded.error().message);
  workspace_.view.ShowTracks();  // a new track may have been made for it
}

void WindowCommands::OpenFiles(const QStringList& paths) {
  // The video first: it may close all tracks.
  for (const QString& path : paths) {
    if (IsVideoName(PathFromQt(path))) OpenVideo(path);
  }
  for (const QString& path : paths) {
    if (IsVideoName(PathFromQt(path)) || !FileExists(PathFromQt(path))) continue;
    if (workspace_.project.tracks.Current().HasFile() && paths.size() > 1)
      workspace_.project.SelectLastTab(workspace_.preferences);
    OpenSubtitle(path);
  }
}

void WindowCommands::CloseSubtitles() {
  workspace_.project.tracks.UnloadAllSrts();
  workspace_.view.ShowTracks();
}

void WindowCommands::MakeDivX() {
  if (jobs_.IsBusy()) return;
  const Outcome outcome = MakeFinalDivX(workspace_, backend_);
  if (outcome.film || outcome.film.error().kind == ErrorKind::Cancelled) return;
  workspace_.reporter.Note({.kind = FindingKind::ToolMessage, .message = outcome.film.error().message});
}

void WindowCommands::BatchConvert() {
  if (jobs_.IsBusy()) return;
  frmBatch dialog(workspace_.prompts, workspace_.project.video.AviPath, window_);
  dialog.exec();
  if (!dialog.Confirmed()) return;
  const std::vector<std::string> videos = dialog.Files();
  CloseSubtitles();
  ConvertList(videos);
}

void WindowCommands::ConvertList(const std::vector<std::string>& videos) {
  if (const auto saved = SaveAll(workspace_.preferences, workspace_.project); !saved) {
    workspace_.reporter.Tell({.kind = FindingKind::NotSaved, .message = saved.error().message});
  }
  (void)LocateTools(workspace_, backend_.ask_for_tool);  // now: nobody is asked while the worker is busy
  UnseenView unseen;
  Workspace worker(workspace_.folders, workspace_.preferences, workspace_.prompts, unseen, Attendance::Nobody);
  worker.preferences.remembers = false;
  worker.project = workspace_.project;
  (void)LoadNewLang(worker, workspace_.language.LangFile);
  const ConversionBackend backend{
      .convert = [this](const ConversionPlan& plan,
                        const auto& fonts) { return Convert(plan, fonts, scripts_, jobs_); },
      .documents = documents_,
      .ask_for_tool = [](Workspace&, Tool) { return false; }};

  QStringList names;
  for (const std::string& video : videos) names.append(ToQt(GetFileNameOnly(video)));
  int begun = 0, made = 0;
  Findings findings;
  const ConvertOptions options{.subtitles{},
                               .begin = [&](const std::string&) { jobs_.BeginItem(begun++); },
                               .done =
                                   [&](const ConvertedFilm& film) {
                                     made += film.status == ConversionStatus::Made ? 1 : 0;
                                     findings.insert(findings.end(), film.findings.begin(), film.findings.end());
                                   }};
  ConvertReport report;
  jobs_.Run([&] { report = ConvertVideos(worker, backend, videos, options); }, names);

  workspace_.project.video = worker.project.video;
  workspace_.view.ShowVideo();
  if (workspace_.preferences.settings.AutoShowAviInfo) workspace_.view.BringUpStreams();
  for (const Finding& finding : findings) workspace_.reporter.Note(finding);
  if (report.stopped) {
    const QString stopped = ToQt(TextOf(workspace_.language.document, window_texts::kBatchStopped));
    report.text.insert(0, FromQt(stopped.arg(made).arg(videos.size())) + "\r\n");
  }
  workspace_.prompts.ShowMessage(std::string{"Batch results - "} + kProgramTitle, ReportOrAllWell(report.text));
}

void WindowCommands::ShowAbout() {
  frmAbout({.version = CAPTORIA_VERSION, .libraries = {DecoderLibrary()}}, workspace_.prompts, documents_, window_)
      .exec();
}

Outcome WindowCommands::RunUnattended(const QString& path) {
  return captoria::RunUnattended(workspace_, backend_, PathFromQt(path));
}

}  // namespace captoria
