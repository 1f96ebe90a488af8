// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/batch_commands_menu.h"

#include "app/run_commands.h"
#include "platform/files.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

BatchCommandsMenu::BatchCommandsMenu(Workspace& workspace, QMenu* menu, QAction* none)
    : QObject(menu), workspace_(workspace), menu_(menu), none_(none) {
  ReloadBatch();
}

void BatchCommandsMenu::ReloadBatch() {
  for (QAction* entry : menu_->actions()) {
    if (entry != none_) delete entry;
  }
  int index = 0;
  for (const std::string& name : ListCommandFiles(workspace_.folders)) {
    const QString file = PathToQt(name);
    QAction* entry = menu_->addAction(QString(file).replace('&', "&&"));
    entry->setObjectName(none_->objectName());
    entry->setProperty("Index", ++index);
    entry->setProperty(kShowsData, true);
    connect(entry, &QAction::triggered, this, [this, file] { RunFile(file); });
  }
  none_->setVisible(index == 0);
  none_->setEnabled(false);
}

void BatchCommandsMenu::RunFile(const QString& name) {
  const std::string path = CommandFilePath(workspace_.folders, PathFromQt(name));
  if (!FileExists(path)) {
    return workspace_.prompts.ShowMessage(kProgramTitle, workspace_.language.TextOf(messages::kFileNotFound));
  }
  (void)RunBatch(workspace_, path);  // it reports errors itself
}

}  // namespace captoria
