// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/tracks/track_tabs.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "localisation/window_texts.h"
#include "ui/texts/qt_font.h"
#include "ui/texts/qt_text.h"

namespace captoria {

TrackTabs::TrackTabs(Workspace& workspace, QWidget* parent)
    : QWidget(parent),
      workspace_(workspace),
      tabs_(new QTabBar(this)),
      list_(new QTreeView(this)),
      model_(new CueModel(workspace, this)) {
  tabs_->setObjectName("TabStrip1");
  tabs_->setAccessibleName("Subtitle tracks");
  tabs_->setDocumentMode(true);
  tabs_->setExpanding(false);
  list_->setObjectName("ListView1");
  list_->setAccessibleName("Subtitles of the track");
  list_->setModel(model_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);  // spares measuring twenty thousand rows
  list_->setAllColumnsShowFocus(true);
  list_->setAlternatingRowColors(true);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setContextMenuPolicy(Qt::CustomContextMenu);
  const int digit = list_->fontMetrics().horizontalAdvance('0');
  list_->setColumnWidth(CueModel::Number, 10 * digit);
  list_->setColumnWidth(CueModel::Show, 16 * digit);
  list_->setColumnWidth(CueModel::Hide, 16 * digit);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(tabs_);
  layout->addWidget(list_);

  connect(tabs_, &QTabBar::currentChanged, this, &TrackTabs::ChooseTab);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TrackTabs::TakeSelection);
  connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
    if (const SubtitleCue* cue = CurrentCue()) current_number_ = cue->Number;
    if (!restoring_) emit CueChosen();
  });
  connect(list_, &QTreeView::customContextMenuRequested, this, [this](const QPoint& at) {
    if (list_->indexAt(at).isValid()) emit MenuWanted(list_->viewport()->mapToGlobal(at));
  });
  ShowTracks();
}

void TrackTabs::ShowTracks() {
  RebuildTabs();
  model_->Reset();
  list_->setFont(ListFont(workspace_.project.tracks.Current().list_font, font()));
  RestoreSelection();
  RestoreCurrent();
  list_->setProperty("Index", workspace_.project.tracks.CurrentIndex());
}

// Keeps the current cue if the same track is shown again. In another track, the first cue becomes current without being
// selected, so that the preview shows something at once.
void TrackTabs::RestoreCurrent() {
  int row = 0;
  const std::pair track{workspace_.project.tracks.CurrentIndex(), workspace_.project.tracks.Current().path};
  if (std::exchange(shown_, track) == track) {
    for (int i = 0; i < model_->rowCount(); ++i) {
      if (model_->CueAt(i)->Number == current_number_) row = i;
    }
  }
  restoring_ = true;
  list_->selectionModel()->setCurrentIndex(model_->index(row, 0), QItemSelectionModel::NoUpdate);
  restoring_ = false;
}

SubtitleCue* TrackTabs::CurrentCue() const { return model_->CueAt(list_->currentIndex().row()); }

int TrackTabs::SelectedCount() const { return static_cast<int>(list_->selectionModel()->selectedRows().size()); }

void TrackTabs::RebuildTabs() {
  const QSignalBlocker quiet(tabs_);
  const int wanted = workspace_.project.tracks.Count() + (workspace_.project.tracks.HasNewTab() ? 1 : 0);
  while (tabs_->count() > wanted) tabs_->removeTab(tabs_->count() - 1);
  while (tabs_->count() < wanted) tabs_->addTab({});
  QString track = ToQt(TextOf(workspace_.language.document, window_texts::kFirstTab));
  while (!track.isEmpty() && track.back().isDigit()) track.chop(1);
  for (int i = 0; i < workspace_.project.tracks.Count(); ++i) tabs_->setTabText(i, track + QString::number(i + 1));
  if (workspace_.project.tracks.HasNewTab()) {
    tabs_->setTabText(wanted - 1, ToQt(TextOf(workspace_.language.document, window_texts::kNewTab)));
  }
  tabs_->setCurrentIndex(workspace_.project.tracks.CurrentIndex());
}

void TrackTabs::ChooseTab(int index) {
  if (index < 0) return;
  if (index < workspace_.project.tracks.Count()) {
    workspace_.project.tracks.Select(index);
  } else {
    workspace_.project.SelectLastTab(workspace_.preferences);
  }
  emit TrackChosen();
}

void TrackTabs::ShowSelection() {
  RestoreSelection();
  list_->viewport()->update();  // RestoreSelection blocks the signals
}

// Restores the selection of a track the user returns to.
void TrackTabs::RestoreSelection() {
  const QSignalBlocker quiet(list_->selectionModel());
  QItemSelection selection;
  for (int row = 0; row < model_->rowCount(); ++row) {
    if (!model_->SelectedAt(row)) continue;
    const int first = row;
    while (row + 1 < model_->rowCount() && model_->SelectedAt(row + 1)) ++row;
    selection.append({model_->index(first, 0), model_->index(row, CueModel::kColumns - 1)});
  }
  list_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void TrackTabs::TakeSelection() {
  const QItemSelectionModel* selection = list_->selectionModel();
  for (int row = 0; row < model_->rowCount(); ++row) model_->SelectedAt(row) = false;
  for (const QModelIndex& index : selection->selectedRows()) model_->SelectedAt(index.row()) = true;
  emit SelectionChanged();
}

}  // namespace captoria
