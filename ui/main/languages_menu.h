// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The menu of languages: an entry for each language file; the language in use is checked.
#pragma once

#include <QActionGroup>
#include <QMenu>
#include <QObject>

#include "app/workspace.h"

namespace captoria {

class LanguagesMenu final : public QObject {
 public:
  // `none` is a hidden entry of `menu` whose caption language files contain. The workspace outlives the menu.
  LanguagesMenu(Workspace& workspace, QMenu* menu, QAction* none);

  // Lists the language files again.
  void Reload();

  // Checks the language in use.
  void ShowCurrent();

 private:
  Workspace& workspace_;
  QMenu* menu_;
  QAction* none_;
  QActionGroup* group_;
};

}  // namespace captoria
