// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/window_commands.h"

#include "app/batch_convert.h"
#include "app/load_subtitle.h"
#include "app/open_video.h"
#include "automation/batch_conversion.h"
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

WindowCommands::WindowCommands(Session& session, JobBar& jobs, QWidget* window)
    : QObject(window),
      session_(session),
      jobs_(jobs),
      window_(window),
      scripts_(session.folders.executable, ProcessEnvironment()),
      outside_{.scripts = scripts_, .documents = documents_, .ask_for_tool = [window](Session& asking, Tool tool) {
                 return AskForToolDialog::Ask(asking, tool, window);
               }} {}

void WindowCommands::OpenVideo(const QString& path) {
  std::string opened = PathFromQt(path);
  const auto result = OpenAnAviFile(session_, opened, {});
  if (result) emit VideoOpened(PathToQt(opened));
}

void WindowCommands::OpenSubtitle(const QString& path) {
  std::string file = PathFromQt(path);
  if (file.empty()) {
    const auto chosen =
        session_.prompts.AskFileToOpen(kProgramTitle, {{"*.srt;*.idx", "*.srt;*.idx"}}, session_.current_file);
    if (!chosen) return;
    file = *chosen;
  }
  const auto loaded = OpenSubtitleFile(session_, file, {});
  if (loaded) return;
  session_.prompts.ShowMessage(kProgramTitle, loaded.error().message);
  session_.view.ShowTracks();  // a new track may have been made for it
}

void WindowCommands::OpenFiles(const QStringList& paths) {
  // The video first: it may close all tracks.
  for (const QString& path : paths) {
    if (IsVideoName(PathFromQt(path))) OpenVideo(path);
  }
  for (const QString& path : paths) {
    if (IsVideoName(PathFromQt(path)) || !FileExists(PathFromQt(path))) continue;
    if (session_.tracks.Current().HasFile() && paths.size() > 1) session_.SelectLastTab();
    OpenSubtitle(path);
  }
}

void WindowCommands::CloseSubtitles() {
  session_.tracks.UnloadAllSrts();
  session_.view.ShowTracks();
}

void WindowCommands::MakeDivX() {
  if (jobs_.IsBusy()) return;
  Result<MadeDivX> made;
  jobs_.Run([&] { made = MakeFinalDivX(session_, outside_, {}); });
  if (!made && made.error().kind != ErrorKind::Cancelled) session_.view.Warn(made.error().message);
}

void WindowCommands::BatchConvert() {
  if (jobs_.IsBusy()) return;
  frmBatch dialog(session_.prompts, session_.video.AviPath, window_);
  dialog.exec();
  if (!dialog.Confirmed()) return;
  const std::vector<std::string> files = dialog.Files();
  CloseSubtitles();  // here, so that the list shows nothing of what the job's thread loads and closes
  ConvertList(files);
}

void WindowCommands::ConvertList(const std::vector<std::string>& files) {
  const auto count = static_cast<int>(files.size());
  int begun = 0, made = 0;
  const ConvertOptions options{
      .subtitles{},
      .begin = [&](const std::string& video) { jobs_.BeginItem(begun++, count, ToQt(GetFileNameOnly(video))); },
      .done = [&](const ConvertedVideo& video) { made += video.output.empty() ? 0 : 1; }};
  ConvertReport report;
  jobs_.Run([&] { report = ConvertVideos(session_, outside_, files, options); });
  if (report.stopped) {
    const QString stopped = ToQt(TextOf(session_.language, window_texts::kBatchStopped)).arg(made).arg(count);
    report.text.insert(0, FromQt(stopped) + "\r\n");
  }
  session_.prompts.ShowMessage(std::string{"Batch results - "} + kProgramTitle, BatchResult(report.text));
}

void WindowCommands::ShowAbout() {
  frmAbout({.version = CAPTORIA_VERSION, .libraries = {DecoderLibrary()}}, session_.prompts, documents_, window_)
      .exec();
}

Result<MadeDivX> WindowCommands::RunUnattended(const QString& path) {
  Result<MadeDivX> made;
  jobs_.Run([&] { made = captoria::RunUnattended(session_, outside_, PathFromQt(path)); });
  return made;
}

}  // namespace captoria
