// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The open tracks as tabs, and below them the cues of the current one.
#pragma once

#include <QTabBar>
#include <QTreeView>
#include <QWidget>

#include "app/workspace.h"
#include "ui/tracks/cue_model.h"

namespace captoria {

class TrackTabs final : public QWidget {
  Q_OBJECT

 public:
  // The workspace outlives the widget.
  TrackTabs(Workspace& workspace, QWidget* parent);

  // Call after the tracks, the current track or its cues changed.
  void ShowTracks();

  // A description of the cue's tag.
  QString TagText(const SubtitleCue& cue) const { return model_->TagText(cue); }

  // Call after the selection changed in the workspace.
  void ShowSelection();

  // Call after tags changed.
  void Refresh() { model_->Refresh(); }

  // The current cue of the list, or null.
  SubtitleCue* CurrentCue() const;

  int SelectedCount() const;
  QTreeView* List() const { return list_; }

 signals:
  void TrackChosen();  // another track is current and has to be shown
  void CueChosen();    // by the user; not sent when ShowTracks changes the current cue
  void SelectionChanged();
  void MenuWanted(const QPoint& global);

 private:
  void ChooseTab(int index);
  void TakeSelection();
  void RestoreSelection();
  void RestoreCurrent();
  void RebuildTabs();

  Workspace& workspace_;
  QTabBar* tabs_;
  QTreeView* list_;
  CueModel* model_;
  std::pair<int, std::string> shown_;  // index and path of the track shown
  bool restoring_ = false;
  std::string current_number_;  // of the last current cue
};

}  // namespace captoria
