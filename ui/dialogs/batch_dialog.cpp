// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/batch_dialog.h"

#include <QDragEnterEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

#include "app/workspace.h"
#include "base/path_text.h"
#include "ui/texts/qt_text.h"

namespace captoria {

frmBatch::frmBatch(Prompts& prompts, std::string current_video, QWidget* parent)
    : QDialog(parent), prompts_(prompts), current_video_(std::move(current_video)), list_(new QListWidget(this)) {
  setObjectName("frmBatch");
  setWindowTitle("Batch convert");
  setAcceptDrops(true);
  list_->setObjectName("List1");
  list_->setAccessibleName("Videos to convert");
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setTextElideMode(Qt::ElideMiddle);
  list_->setUniformItemSizes(true);
  list_->installEventFilter(this);
  connect(list_, &QListWidget::itemSelectionChanged, this, &frmBatch::OfferWhatIsPossible);

  auto* label = new QLabel("&Videos to convert. Files and folders can be dropped here.", this);
  label->setBuddy(list_);
  label->setWordWrap(true);
  auto* side = new QVBoxLayout;
  side->addWidget(Button("Command1", "&Add", &frmBatch::Add));
  side->addWidget(Button("Command4", "All .avi files in &folder", &frmBatch::AddFolder));
  side->addWidget(delete_ = Button("Command2", "&Delete", &frmBatch::Delete));
  side->addWidget(clear_ = Button("Command3", "&Clear", &frmBatch::Clear));
  side->addStretch();
  auto* ok = Button("OKButton", "OK", &frmBatch::accept);
  ok->setDefault(true);
  side->addWidget(ok);
  side->addWidget(Button("CancelButton", "Cancel", &frmBatch::reject));
  delete_->setToolTip("Removes the selected lines from the list; the files are kept");

  auto* layout = new QGridLayout(this);
  layout->addWidget(label, 0, 0, 1, 2);
  layout->addWidget(list_, 1, 0);
  layout->addLayout(side, 1, 1);
  layout->setColumnStretch(0, 1);
  const QFontMetrics letters(font());
  resize(letters.averageCharWidth() * 100, letters.lineSpacing() * 22);
  OfferWhatIsPossible();
}

QPushButton* frmBatch::Button(const char* name, const QString& text, void (frmBatch::*clicked)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

void frmBatch::Add() {
  const FileFilter videos{kVideoPatterns, kVideoPatterns};
  for (const std::string& path : prompts_.AskFilesToOpen(FromQt(windowTitle()), {videos}, current_video_))
    files_.AddFile(path);
  ShowFiles();
}

void frmBatch::AddFolder() {
  const std::string start{current_video_.empty() ? "" : GetPathOnly(current_video_)};
  if (const auto folder = prompts_.AskFolder(FromQt(windowTitle()), start)) files_.AddFolder(*folder);
  ShowFiles();
}

void frmBatch::Delete() {
  std::vector<int> rows;
  for (const QModelIndex& line : list_->selectionModel()->selectedRows()) rows.push_back(line.row());
  std::ranges::sort(rows, std::greater{});
  for (const int row : rows) {
    files_.Remove(static_cast<std::size_t>(row));
    delete list_->takeItem(row);
  }
  OfferWhatIsPossible();
}

void frmBatch::Clear() {
  files_.Clear();
  list_->clear();
  OfferWhatIsPossible();
}

void frmBatch::accept() {
  if (!files_.Files().empty()) return QDialog::accept();
  prompts_.ShowMessage(kProgramTitle, "Plaese add some files");
}

// Files are only ever appended, so existing lines and their selection stay.
void frmBatch::ShowFiles() {
  const auto& files = files_.Files();
  const auto shown = static_cast<std::size_t>(list_->count());
  for (std::size_t i = shown; i < files.size(); ++i) {
    const QString path = PathToQt(files[i]);
    auto* line = new QListWidgetItem(path, list_);
    line->setToolTip(path);
  }
  if (files.size() > shown) list_->scrollToBottom();
  OfferWhatIsPossible();
}

void frmBatch::OfferWhatIsPossible() {
  const bool selected = list_->selectionModel()->hasSelection();
  // A button that is disabled while it has the focus passes it to an arbitrary neighbour.
  if ((delete_->hasFocus() && !selected) || (clear_->hasFocus() && list_->count() == 0)) list_->setFocus();
  delete_->setEnabled(selected);
  clear_->setEnabled(list_->count() > 0);
}

void frmBatch::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (std::ranges::any_of(urls, &QUrl::isLocalFile)) event->acceptProposedAction();
}

void frmBatch::dropEvent(QDropEvent* event) {
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) files_.AddDropped(PathFromQt(url.toLocalFile()));
  }
  ShowFiles();
  event->acceptProposedAction();
}

bool frmBatch::eventFilter(QObject* watched, QEvent* event) {
  const bool deletes =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Delete);
  if (!deletes) return QDialog::eventFilter(watched, event);
  Delete();
  return true;
}

}  // namespace captoria
