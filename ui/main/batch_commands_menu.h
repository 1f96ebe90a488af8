// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The menu of command files: an entry for each "*.cbx" file of the program's folder, or one that says there is none.
#pragma once

#include <QMenu>
#include <QObject>

#include "app/session.h"

namespace captoria {

class BatchCommandsMenu final : public QObject {
 public:
  // `none` is the entry of `menu` for a folder without command files. The session outlives the object.
  BatchCommandsMenu(Session& session, QMenu* menu, QAction* none);

  // Looks into the folder again.
  void ReloadBatch();

 private:
  void RunFile(const QString& name);

  Session& session_;
  QMenu* menu_;
  QAction* none_;
};

}  // namespace captoria
