// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/tracks/cue_model.h"

#include <QApplication>
#include <QStyle>
#include <algorithm>
#include <array>

#include "app/safe_area_commands.h"
#include "localisation/window_texts.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

// A cue's text in one line. Isolated if it runs against the window's direction, so that a full stop stays at its end.
QString ListLine(const std::string& text) {
  const QString line = OneLine(text);
  return line.isRightToLeft() == QApplication::isRightToLeft() ? line : Isolated(line);
}

}  // namespace

CueModel::CueModel(Workspace& workspace, QObject* parent) : QAbstractTableModel(parent), workspace_(workspace) {
  Reset();
}

void CueModel::Reset() {
  beginResetModel();
  endResetModel();
}

void CueModel::Refresh() {
  if (const int rows = rowCount(); rows > 0) emit dataChanged(index(0, 0), index(rows - 1, kColumns - 1));
}

SubtitleCue* CueModel::CueAt(int row) {
  return row >= 0 && row < rowCount() ? &workspace_.project.ShownCue(static_cast<std::size_t>(row)) : nullptr;
}

bool& CueModel::SelectedAt(int row) { return workspace_.project.ShownSelected(static_cast<std::size_t>(row)); }

bool CueModel::IsMarked(int row) const {
  const SubtitleTrack& track = workspace_.project.tracks.Current();
  return !workspace_.project.only_outside && !track.IsIdx() &&
         std::ranges::binary_search(track.outside, static_cast<std::size_t>(row), {}, &OutsideRow::row);
}

QString CueModel::TagText(const SubtitleCue& cue) const {
  return ToQt(TextOf(workspace_.language.document,
                     workspace_.project.only_outside ? window_texts::kFitTag : window_texts::kTag) +
              cue.Tag);
}

int CueModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(workspace_.project.ShownCount());
}

int CueModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant CueModel::data(const QModelIndex& index, int role) const {
  const SubtitleCue& cue = workspace_.project.ShownCue(static_cast<std::size_t>(index.row()));
  if (role == Qt::DisplayRole) {
    switch (index.column()) {
      case Number:
        return ToQt(cue.Number);
      case Show:
        return ToQt(cue.Show);
      case Hide:
        return ToQt(cue.Hide);
      default:
        return ListLine(cue.Text);
    }
  }
  if (role == Qt::ToolTipRole && !cue.Tag.empty()) {
    return TagText(cue);
  }
  if (role == Qt::DecorationRole && index.column() == Number && IsMarked(index.row())) {
    return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
  }
  if (role == Qt::AccessibleTextRole && index.column() == Number && IsMarked(index.row())) {
    return ToQt(cue.Number + TextOf(workspace_.language.document, window_texts::kOutside));
  }
  return {};
}

QVariant CueModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  constexpr std::array kTitles{window_texts::kNumber, window_texts::kShow, window_texts::kHide, window_texts::kText};
  return ToQt(TextOf(workspace_.language.document, kTitles.at(static_cast<std::size_t>(section))));
}

}  // namespace captoria
