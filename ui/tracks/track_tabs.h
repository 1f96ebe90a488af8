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

  // Tracks, the current one or its cues are others.
  void ShowTracks();

  // What is told of the tag of `cue`.
  QString TagText(const SubtitleCue& cue) const { return model_->TagText(cue); }

  // Other cues are selected in the workspace.
  void ShowSelection();

  // Tags have changed.
  void Refresh() { model_->Refresh(); }

  // The cue that is current in the list; nothing when there is none.
  SubtitleCue* CurrentCue() const;

  int SelectedCount() const;
  QTreeView* List() const { return list_; }

 signals:
  void TrackChosen();  // another one is current now, and has to be shown
  void CueChosen();    // by a person; the one that ShowTracks makes current is not told
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
  std::pair<int, std::string> shown_;  // the track, and its file
  bool restoring_ = false;
  std::string current_number_;  // of the cue that was current last
};

}  // namespace captoria
