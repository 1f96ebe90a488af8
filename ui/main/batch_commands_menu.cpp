// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/batch_commands_menu.h"

#include "app/batch_commands.h"
#include "platform/files.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

BatchCommandsMenu::BatchCommandsMenu(Session& session, QMenu* menu, QAction* none)
    : QObject(menu), session_(session), menu_(menu), none_(none) {
  ReloadBatch();
}

void BatchCommandsMenu::ReloadBatch() {
  for (QAction* entry : menu_->actions()) {
    if (entry != none_) delete entry;
  }
  int index = 0;
  for (const std::string& name : ListCommandFiles(session_.folders)) {
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
  const std::string path = CommandFilePath(session_.folders, PathFromQt(name));
  if (!FileExists(path)) {
    return session_.prompts.ShowMessage(kProgramTitle, session_.TextFor(messages::kFileNotFound));
  }
  (void)RunBatch(session_, path);  // what is at fault is told by it
}

}  // namespace captoria
