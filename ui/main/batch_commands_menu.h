// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The menu of command files: an entry for each "*.cbx" file in the program's folder, or a disabled entry if there is no
// such file.
#pragma once

#include <QMenu>
#include <QObject>

#include "app/workspace.h"

namespace captoria {

class BatchCommandsMenu final : public QObject {
 public:
  // `none` is the entry of `menu` for a folder without command files. The workspace outlives the menu.
  BatchCommandsMenu(Workspace& workspace, QMenu* menu, QAction* none);

  // Lists the folder again.
  void ReloadBatch();

 private:
  void RunFile(const QString& name);

  Workspace& workspace_;
  QMenu* menu_;
  QAction* none_;
};

}  // namespace captoria
