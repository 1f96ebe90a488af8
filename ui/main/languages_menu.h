// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The menu of languages: an entry for each language file, the one in use ticked.
#pragma once

#include <QActionGroup>
#include <QMenu>
#include <QObject>

#include "app/workspace.h"

namespace captoria {

class LanguagesMenu final : public QObject {
 public:
  // `none` is a hidden entry of `menu` that language files know. The workspace outlives the object.
  LanguagesMenu(Workspace& workspace, QMenu* menu, QAction* none);

  // Looks for language files again.
  void Reload();

  // Ticks the language in use.
  void ShowCurrent();

 private:
  Workspace& workspace_;
  QMenu* menu_;
  QAction* none_;
  QActionGroup* group_;
};

}  // namespace captoria
