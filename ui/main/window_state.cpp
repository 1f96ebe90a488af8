// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/window_state.h"

#include <QFileInfo>
#include <QScreen>

#include "base/path_text.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr int kTwips = 15;  // per pixel
constexpr int kMostRecent = 10;
constexpr const char* kRecentKey = "recent/videos";

int Pixels(float twips) { return static_cast<int>(twips) / kTwips; }

}  // namespace

WindowState::WindowState(Workspace& workspace, QMainWindow* window)
    : QObject(window),
      workspace_(workspace),
      window_(window),
      file_(ToQt(JoinPath(workspace.folders.data, "Captoria.window.ini")), QSettings::IniFormat) {}

void WindowState::Keep(QSplitter* splitter) {
  splitters_.append(splitter);
  splitter->restoreState(file_.value("splitters/" + splitter->objectName()).toByteArray());
}

void WindowState::Keep(QHeaderView* header, const QString& name) {
  headers_.append({header, name});
  header->restoreState(file_.value("columns/" + name).toByteArray());
}

void WindowState::Restore() {
  const Settings& settings = workspace_.preferences.settings;
  QRect place(Pixels(settings.MainX), Pixels(settings.MainY), Pixels(settings.MainWidth), Pixels(settings.MainHeight));
  // The screen the window was on may be gone.
  const QRect screen = window_->screen()->availableGeometry();
  place.setSize(place.size().boundedTo(screen.size()).expandedTo(window_->minimumSizeHint()));
  if (!screen.intersects(place)) place.moveTopLeft(screen.topLeft());
  window_->setGeometry(place);
}

void WindowState::Save() {
  // A maximised or minimised window has the geometry it will be restored to.
  const QRect place =
      window_->isMaximized() || window_->isMinimized() ? window_->normalGeometry() : window_->geometry();
  Settings& settings = workspace_.preferences.settings;
  settings.MainX = static_cast<float>(place.x() * kTwips);
  settings.MainY = static_cast<float>(place.y() * kTwips);
  settings.MainWidth = static_cast<float>(place.width() * kTwips);
  settings.MainHeight = static_cast<float>(place.height() * kTwips);
  for (const QSplitter* splitter : splitters_) {
    file_.setValue("splitters/" + splitter->objectName(), splitter->saveState());
  }
  for (const auto& [header, name] : headers_) file_.setValue("columns/" + name, header->saveState());
  file_.sync();
}

void WindowState::KeepRecent(QMenu* menu) {
  recent_ = menu;
  ShowRecent();
}

void WindowState::AddRecent(const QString& path) {
  QStringList paths = file_.value(kRecentKey).toStringList();
  paths.removeAll(path);
  paths.prepend(path);
  file_.setValue(kRecentKey, QStringList(paths.mid(0, kMostRecent)));
  ShowRecent();
}

void WindowState::ShowRecent() {
  recent_->clear();
  for (const QString& path : file_.value(kRecentKey).toStringList()) {
    QAction* entry = recent_->addAction(QFileInfo(path).fileName().replace('&', "&&"));
    entry->setToolTip(path);
    connect(entry, &QAction::triggered, this, [this, path] { emit RecentChosen(path); });
  }
  recent_->setToolTipsVisible(true);
  recent_->setEnabled(!recent_->isEmpty());
}

}  // namespace captoria
