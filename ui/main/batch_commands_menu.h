// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The menu of command files: an entry for each "*.cbx" file of the program's folder, or one that says there is none.
#pragma once

#include <QMenu>
#include <QObject>

#include "app/workspace.h"

namespace captoria {

class BatchCommandsMenu final : public QObject {
 public:
  // `none` is the entry of `menu` for a folder without command files. The workspace outlives the object.
  BatchCommandsMenu(Workspace& workspace, QMenu* menu, QAction* none);

  // Looks into the folder again.
  void ReloadBatch();

 private:
  void RunFile(const QString& name);

  Workspace& workspace_;
  QMenu* menu_;
  QAction* none_;
};

}  // namespace captoria
