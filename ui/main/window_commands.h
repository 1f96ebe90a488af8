// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the window's menu entries do to the session, long work beside the window.
#pragma once

#include <QObject>
#include <QStringList>

#include "app/make_divx.h"
#include "app/session.h"
#include "ui/jobs/job.h"

namespace captoria {

class WindowCommands final : public QObject {
  Q_OBJECT

 public:
  // All outlive the object.
  WindowCommands(Session& session, JobBar& jobs, QWidget* window);

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
  Result<MadeDivX> RunUnattended(const QString& path);

 signals:
  // A video was opened by its user, and so may be wanted again.
  void VideoOpened(const QString& path);

 private:
  void ConvertList(const std::vector<std::string>& files);

  Session& session_;
  JobBar& jobs_;
  QWidget* window_;
  CaptoriaRun scripts_;
  DesktopOpener documents_;
  Outside outside_;
};

}  // namespace captoria
