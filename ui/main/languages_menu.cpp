// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/languages_menu.h"

#include "app/language_commands.h"
#include "localisation/language_files.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

LanguagesMenu::LanguagesMenu(Workspace& workspace, QMenu* menu, QAction* none)
    : QObject(menu), workspace_(workspace), menu_(menu), none_(none), group_(new QActionGroup(this)) {
  none_->setVisible(false);
  Reload();
}

void LanguagesMenu::Reload() {
  for (QAction* entry : group_->actions()) delete entry;
  int index = 0;
  for (const LanguageFile& file : ListLanguages(workspace_.folders)) {
    QAction* entry = menu_->addAction(ToQt(file.name).replace('&', "&&"));
    entry->setObjectName(none_->objectName());
    entry->setProperty("Index", ++index);
    entry->setProperty(kShowsData, true);
    entry->setData(ToQt(file.name));
    entry->setCheckable(true);
    group_->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, base = file.base] {
      (void)LoadNewLang(workspace_, base);
      ShowCurrent();  // the chosen file may be gone
    });
  }
  ShowCurrent();
}

void LanguagesMenu::ShowCurrent() {
  const QString name = ToQt(LanguageName(workspace_.language.LangFile));
  for (QAction* entry : group_->actions()) entry->setChecked(entry->data() == name);
}

}  // namespace captoria
