// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a session shows, as signals that arrive on the window's thread, whatever thread a command runs on.
#pragma once

#include <QObject>

#include "app/session_view.h"
#include "ui/jobs/job.h"

namespace captoria {

class WindowView final : public QObject, public SessionView {
  Q_OBJECT

 public:
  WindowView() = default;

  // Where long work shows how far it is; outlives what is begun. Before it is set, work shows nothing.
  void SetJobBar(JobBar* bar) { bar_ = bar; }

  void ShowVideo() override;
  void BringUpStreams() override;
  void ShowTracks() override;
  void ShowLanguage() override;
  void ShowCommandsRun(const std::string& file_name, std::size_t selected) override;
  void Warn(const std::string& text) override;
  std::unique_ptr<JobProgress> BeginWork(Work work) override;

 signals:
  void VideoChanged();
  void StreamsWanted();
  void LanguageChanged();
  void TracksChanged();
  void CommandsRun(const QString& file_name, int selected);
  void Warned(const QString& text);

 private:
  JobBar* bar_ = nullptr;
};

}  // namespace captoria
