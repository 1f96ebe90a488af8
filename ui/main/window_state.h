// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the window remembers: its place and size in the workspace's settings; splitters, column widths and recent videos
// in a file of its own.
#pragma once

#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QSettings>
#include <QSplitter>

#include "app/workspace.h"

namespace captoria {

class WindowState final : public QObject {
  Q_OBJECT

 public:
  WindowState(Workspace& workspace, QMainWindow* window);

  // Restores the state now and remembers it in Save, under the object name or `name`.
  void Keep(QSplitter* splitter);
  void Keep(QHeaderView* header, const QString& name);

  void Restore();
  void Save();

  // Lists the recent videos in `menu`. Choosing one sends RecentChosen.
  void KeepRecent(QMenu* menu);
  void AddRecent(const QString& path);

 signals:
  void RecentChosen(const QString& path);

 private:
  void ShowRecent();

  Workspace& workspace_;
  QMainWindow* window_;
  QSettings file_;
  QList<QSplitter*> splitters_;
  QList<std::pair<QHeaderView*, QString>> headers_;
  QMenu* recent_ = nullptr;
};

}  // namespace captoria
