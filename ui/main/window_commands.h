// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the window's menu entries do. Long work runs beside the window, on plans and copies.
#pragma once

#include <QObject>
#include <QStringList>

#include "app/convert_list.h"
#include "app/unattended.h"
#include "app/workspace.h"
#include "ui/jobs/job.h"

namespace captoria {

class WindowCommands final : public QObject {
  Q_OBJECT

 public:
  // All outlive the object.
  WindowCommands(Workspace& workspace, JobBar& jobs, QWidget* window);

  // An empty path asks for one.
  void OpenVideo(const QString& path);
  void OpenSubtitle(const QString& path);

  // A video becomes the video, other files subtitles of the current track or, where that has a file, of a new one.
  void OpenFiles(const QStringList& paths);

  void CloseSubtitles();
  void MakeDivX();
  void BatchConvert();
  void ShowAbout();

  // The run that a file manager starts.
  Outcome RunUnattended(const QString& path);

 signals:
  // A video was opened by its user, and so may be wanted again.
  void VideoOpened(const QString& path);

 private:
  Outcome ConvertBesideWindow(const ConversionPlan& plan, const std::shared_ptr<FontCollection>& fonts);
  void ConvertList(const std::vector<std::string>& videos);

  Workspace& workspace_;
  JobBar& jobs_;
  QWidget* window_;
  CaptoriaRun scripts_;
  DesktopOpener documents_;
  ConversionBackend backend_;
};

}  // namespace captoria
