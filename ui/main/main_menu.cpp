// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/main_menu.h"

#include <QIcon>

namespace captoria {
namespace {

QAction* Find(const QList<QAction*>& actions, const QString& name) {
  for (QAction* action : actions) {
    if (action->objectName() == name) return action;
  }
  return nullptr;
}

// Adds a menu to the menu bar.
QMenu* AddMenu(QMenuBar* bar, const char* name, const QString& text) {
  QMenu* menu = bar->addMenu(text);
  menu->setObjectName(name);
  return menu;
}

}  // namespace

MainMenu::MainMenu(QMenuBar* bar, QToolBar* toolbar, const QList<QAction*>& style_actions, QObject* parent)
    : QObject(parent) {
  BuildFile(bar);
  BuildSubtitles(bar, style_actions);
  BuildBatchAndHelp(bar);
  BuildPopup(bar);
  BuildToolbar(toolbar);
}

QAction* MainMenu::Add(QMenu* menu, const char* name, const QString& text, const char* icon, const QKeySequence& keys) {
  QAction* action = menu->addAction(text);
  action->setObjectName(name);
  action->setShortcut(keys);
  if (icon != nullptr) action->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)));
  return action;
}

void MainMenu::BuildFile(QMenuBar* bar) {
  QMenu* file = AddMenu(bar, "mnuFile", "&File");
  open_avi = Add(file, "mnuOpenAvi", "Open &avi...", "open-avi", QKeySequence::Open);
  open_srt = Add(file, "mnuOpenSrt", "Open &srt/idx...", "open-srt", Qt::CTRL | Qt::Key_T);
  recent = file->addMenu("&Recent videos");
  recent->setObjectName("mnuRecent");
  file->addSeparator()->setObjectName("mnuSep2");
  // No command closes a single file, but language files contain a caption for it.
  Add(file, "mnuCloseThisSrt", "Close active srt/idx file")->setVisible(false);
  close_srt = Add(file, "mnuCloseSrt", "&Close all srt/idx files", nullptr, QKeySequence::Close);
  file->addSeparator()->setObjectName("mnuSep3");
  options = Add(file, "mnuOptions", "&Options...", "options", Qt::CTRL | Qt::Key_Comma);
  file->addSeparator()->setObjectName("mnuSep156");
  batch_convert = Add(file, "mnuBatchConvert", "&Batch convert...", nullptr, Qt::CTRL | Qt::Key_B);
  file->addSeparator()->setObjectName("mnuSep4");
  exit = Add(file, "mnuExit", "E&xit", nullptr, QKeySequence::Quit);
  exit->setMenuRole(QAction::QuitRole);
}

void MainMenu::BuildSubtitles(QMenuBar* bar, const QList<QAction*>& style_actions) {
  QMenu* subtitles = AddMenu(bar, "mnuSubtitles", "&Subtitles");
  fit_font = Add(subtitles, "mnuFitFont", "&Fit font size", "fit-font");
  fit_font->setCheckable(true);
  fit_font->setToolTip("Fit the font size of big subtitles when creating the DivX");
  subtitles->addSeparator()->setObjectName("mnuSep12");
  const auto add_style = [&](const char* key, const char* name, const QString& text) {
    QAction* entry = Add(subtitles, name, text);
    QAction* action = Find(style_actions, key);
    if (action == nullptr) return;
    entry->setIcon(action->icon());
    connect(action, &QAction::changed, entry, [entry, action] {
      entry->setIcon(action->icon());
      entry->setEnabled(action->isEnabled());
    });
    connect(entry, &QAction::triggered, action, &QAction::trigger);
  };
  add_style("font", "mnuFont", "F&ont...");
  add_style("color", "mnuForeColor", "Fore &color...");
  add_style("outcolor", "mnuOutlineColor", "O&utline color...");
  BuildOutlineWidths(subtitles, style_actions);
  add_style("shadowcolor", "mnuShadowColor", "&Shadow color...");
  subtitles->addSeparator()->setObjectName("mnuSep17");
  only_outside = Add(subtitles, "mnuOnlyOut", "Only outsi&de subtitles", "only-out");
  only_outside->setToolTip("Show only subtitles that are outside safe viewing area");
  only_outside->setCheckable(true);
  preview = Add(subtitles, "mnuPreview", "&Preview", nullptr, Qt::CTRL | Qt::Key_P);
  preview->setCheckable(true);
  subtitles->addSeparator()->setObjectName("mnuSep39");
  make_divx = Add(subtitles, "mnuMakeDivX", "Create &DivX", "create-divx", Qt::CTRL | Qt::Key_D);
}

void MainMenu::BuildOutlineWidths(QMenu* menu, const QList<QAction*>& style_actions) {
  QMenu* widths = menu->addMenu("Outline &width");
  widths->setObjectName("mnuOutlineWidth");
  auto* one_of_them = new QActionGroup(widths);
  for (int width = 0; width <= 4; ++width) {
    QAction* action = Find(style_actions, QStringLiteral("out%1").arg(width));
    if (action == nullptr) continue;
    QAction* entry = Add(widths, "mnuOutlineWidthValue", QString::number(width));
    entry->setProperty("Index", width);
    entry->setCheckable(true);
    entry->setChecked(action->isChecked());
    one_of_them->addAction(entry);
    connect(action, &QAction::changed, widths, [widths, action] { widths->setEnabled(action->isEnabled()); });
    connect(action, &QAction::toggled, entry, &QAction::setChecked);
    connect(entry, &QAction::triggered, action, &QAction::trigger);
  }
}

void MainMenu::BuildBatchAndHelp(QMenuBar* bar) {
  batch_commands = AddMenu(bar, "mnuBatchCommands", "&Batch commands");
  no_batch_file = Add(batch_commands, "mnuBatch", "None batch file");
  no_batch_file->setProperty("Index", 0);
  QMenu* help = AddMenu(bar, "mnuHelp", "&Help");
  languages = help->addMenu("&Languages");
  languages->setObjectName("mnuLanguages");
  create_lang = Add(languages, "mnuCreateLang", "&Create new Language...");
  languages->addSeparator()->setObjectName("mnuSep73");
  no_language = Add(languages, "mnuLangDef", "Default");
  no_language->setProperty("Index", 0);
  help->addSeparator()->setObjectName("mnuSep59");
  welcome = Add(help, "mnuWelcome", "&Welcome dialog...", nullptr, QKeySequence::HelpContents);
  about = Add(help, "mnuAbout", "&About...");
  about->setMenuRole(QAction::AboutRole);
}

void MainMenu::BuildPopup(QMenuBar* bar) {
  selected_subs = new QMenu("Menu for selected subtitles", bar);
  selected_subs->setObjectName("mnuforSelectedSubs");
  left = Add(selected_subs, "mnuLeftAl", "&Left alignment", "align-left", Qt::CTRL | Qt::Key_L);
  center = Add(selected_subs, "mnuCenterAl", "&Center alignment", "align-center", Qt::CTRL | Qt::Key_E);
  right = Add(selected_subs, "mnuRightAl", "&Right alignment", "align-right", Qt::CTRL | Qt::Key_R);
  selected_subs->addSeparator()->setObjectName("mnuforSelectedSubsSep");
  set_pos_align = Add(selected_subs, "mnuSetPosAlign", "Set &pos and alignment...", nullptr, Qt::CTRL | Qt::Key_G);
  select_subs = Add(selected_subs, "mnuSelectSub", "&Select subtitles...", nullptr, QKeySequence::Find);
}

void MainMenu::BuildToolbar(QToolBar* toolbar) {
  stream_info = new QAction(QIcon(":/icons/avi-info.svg"), "Show avi info (streams)", this);
  stream_info->setObjectName("AviInfo");
  stream_info->setCheckable(true);
  stream_info->setShortcut(Qt::CTRL | Qt::Key_I);
  const auto add = [&](QAction* action, const char* key) {
    toolbar->addAction(action);
    toolbar->widgetForAction(action)->setObjectName(key);
    toolbar->widgetForAction(action)->setAccessibleName(action->toolTip());
  };
  add(open_avi, "OpenAvi");
  add(stream_info, "AviInfo");
  add(open_srt, "OpenSrt");
  toolbar->addSeparator();
  add(only_outside, "OnlyOut");
  add(fit_font, "FitFont");
  toolbar->addSeparator();
  add(make_divx, "CreateDivX");
  add(options, "Options");
}

}  // namespace captoria
