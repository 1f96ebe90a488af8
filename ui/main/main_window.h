// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The main window: puts the parts together, and passes on what one tells the others. What its commands do is in
// ui/main/window_commands.h.
#pragma once

#include <QComboBox>
#include <QDockWidget>
#include <QMainWindow>
#include <QStackedWidget>

#include "app/workspace.h"
#include "ui/dialogs/info.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/jobs/job.h"
#include "ui/main/batch_commands_menu.h"
#include "ui/main/languages_menu.h"
#include "ui/main/main_menu.h"
#include "ui/main/status_labels.h"
#include "ui/main/window_commands.h"
#include "ui/main/window_state.h"
#include "ui/main/window_view.h"
#include "ui/preview/preview_pane.h"
#include "ui/style/style_panel.h"
#include "ui/texts/captions.h"
#include "ui/texts/language_look.h"
#include "ui/tracks/track_tabs.h"

namespace captoria {

class Form1 final : public QMainWindow {
 public:
  // `view` is that of the workspace. Both outlive the window.
  Form1(Workspace& workspace, WindowView& view);

  WindowCommands& Commands() { return *commands_; }

  // The first start greets the user.
  void Welcome();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Build();
  QWidget* BuildWorkPage();
  void BuildStreams();
  void ConnectMenu();
  void ConnectParts();

  void ShowLanguage();
  void ShowTracks();
  void ShowVideo();
  void ShowSystem();
  void ShowCue();
  void ShowCounts();
  void ShowOnlyOutside(bool only);
  void SetFitFont(bool fit);
  void CheckSafeAreaAgain();
  void SetAlignment(Alignment align);
  PositionDialogStart PlacementStart() const;
  void SetPosAlign();
  void SelectSubs();
  void ShowOptions();
  void CreateLanguage();
  void ShowCommandsRun(const QString& file_name, int selected);
  void SetBusy(bool busy);

  Workspace& workspace_;
  WindowView& view_;
  StylePanel* style_;
  MainMenu* menu_;
  TrackTabs* tracks_;
  PreviewPane* preview_;
  Info* streams_;
  QDockWidget* streams_dock_;
  QComboBox* system_;  // NTSC or PAL
  JobBar* jobs_;
  StatusLabels* status_;
  QStackedWidget* pages_;
  WindowCommands* commands_;
  WindowState* state_;
  BatchCommandsMenu* batch_menu_;
  LanguagesMenu* languages_;
  WindowCaptions captions_{*this};
  LanguageLook look_;
  bool closing_ = false;  // as soon as the job has stopped
};

}  // namespace captoria
