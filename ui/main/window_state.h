// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the window remembers: its place and size with the session's settings, and in a file of its own the splitters,
// the widths of columns and the videos opened last.
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

  // These are restored now and remembered at Save. Their object names tell them apart.
  void Keep(QSplitter* splitter);
  void Keep(QHeaderView* header, const QString& name);

  void Restore();
  void Save();

  // The videos opened last are entries of `menu`; choosing one tells its path.
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
