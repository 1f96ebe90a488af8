// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What commands show, as signals to the parts of the window. On the window's thread only.
#pragma once

#include <QObject>

#include "app/workspace_view.h"

namespace captoria {

class WindowView final : public QObject, public WorkspaceView {
  Q_OBJECT

 public:
  WindowView() = default;

  void ShowVideo() override { emit VideoChanged(); }
  void BringUpStreams() override { emit StreamsWanted(); }
  void ShowTracks() override { emit TracksChanged(); }
  void ShowLanguage() override { emit LanguageChanged(); }
  void ShowCommandsRun(const std::string& file_name, std::size_t selected) override;
  void ShowFinding(const Finding& finding) override;

 signals:
  void VideoChanged();
  void StreamsWanted();
  void LanguageChanged();
  void TracksChanged();
  void CommandsRun(const QString& file_name, int selected);
  void Warned(const QString& text);
};

}  // namespace captoria
