// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The cues of the current track as rows of a list. Holds no copy of the cues.
#pragma once

#include <QAbstractTableModel>

#include "app/workspace.h"

namespace captoria {

class CueModel final : public QAbstractTableModel {
 public:
  enum Column { Number, Show, Hide, Text, kColumns };

  // The workspace outlives the model.
  CueModel(Workspace& workspace, QObject* parent);

  // Call after the track, its cues or the choice between all cues and those outside changed.
  void Reset();

  // Call after only the tags of cues changed. Keeps rows and selection.
  void Refresh();

  // Null if there is no such row.
  SubtitleCue* CueAt(int row);

  // Whether the row is selected in the list that is shown.
  bool& SelectedAt(int row);

  // A description of the cue's tag.
  QString TagText(const SubtitleCue& cue) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  // Whether the row of the list of all cues is marked as outside the safe viewing area.
  bool IsMarked(int row) const;

  Workspace& workspace_;
};

}  // namespace captoria
