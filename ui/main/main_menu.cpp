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

// An entry of the menu bar under a name of its own.
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
  QMenu* file = AddMenu(bar, "mnuFile", tr("&File"));
  open_avi = Add(file, "mnuOpenAvi", tr("Open &avi..."), "open-avi", QKeySequence::Open);
  open_srt = Add(file, "mnuOpenSrt", tr("Open &srt/idx..."), "open-srt", tr("Ctrl+T"));
  recent = file->addMenu(tr("&Recent videos"));
  recent->setObjectName("mnuRecent");
  file->addSeparator()->setObjectName("mnuSep2");
  // A single file is closed by no command; language files know the entry all the same.
  Add(file, "mnuCloseThisSrt", tr("Close active srt/idx file"))->setVisible(false);
  close_srt = Add(file, "mnuCloseSrt", tr("&Close all srt/idx files"), nullptr, QKeySequence::Close);
  file->addSeparator()->setObjectName("mnuSep3");
  options = Add(file, "mnuOptions", tr("&Options..."), "options", tr("Ctrl+,"));
  file->addSeparator()->setObjectName("mnuSep156");
  batch_convert = Add(file, "mnuBatchConvert", tr("&Batch convert..."), nullptr, tr("Ctrl+B"));
  file->addSeparator()->setObjectName("mnuSep4");
  exit = Add(file, "mnuExit", tr("E&xit"), nullptr, QKeySequence::Quit);
  exit->setMenuRole(QAction::QuitRole);
}

void MainMenu::BuildSubtitles(QMenuBar* bar, const QList<QAction*>& style_actions) {
  QMenu* subtitles = AddMenu(bar, "mnuSubtitles", tr("&Subtitles"));
  fit_font = Add(subtitles, "mnuFitFont", tr("&Fit font size"), "fit-font");
  fit_font->setCheckable(true);
  fit_font->setToolTip(tr("Fit the font size of big subtitles when creating the DivX"));
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
  add_style("font", "mnuFont", tr("F&ont..."));
  add_style("color", "mnuForeColor", tr("Fore &color..."));
  add_style("outcolor", "mnuOutlineColor", tr("O&utline color..."));
  BuildOutlineWidths(subtitles, style_actions);
  add_style("shadowcolor", "mnuShadowColor", tr("&Shadow color..."));
  subtitles->addSeparator()->setObjectName("mnuSep17");
  only_outside = Add(subtitles, "mnuOnlyOut", tr("Only outsi&de subtitles"), "only-out");
  only_outside->setToolTip(tr("Show only subtitles that are outside safe viewing area"));
  only_outside->setCheckable(true);
  preview = Add(subtitles, "mnuPreview", tr("&Preview"), nullptr, tr("Ctrl+P"));
  preview->setCheckable(true);
  subtitles->addSeparator()->setObjectName("mnuSep39");
  make_divx = Add(subtitles, "mnuMakeDivX", tr("Create &DivX"), "create-divx", tr("Ctrl+D"));
}

void MainMenu::BuildOutlineWidths(QMenu* menu, const QList<QAction*>& style_actions) {
  QMenu* widths = menu->addMenu(tr("Outline &width"));
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
  batch_commands = AddMenu(bar, "mnuBatchCommands", tr("&Batch commands"));
  no_batch_file = Add(batch_commands, "mnuBatch", tr("None batch file"));
  no_batch_file->setProperty("Index", 0);
  QMenu* help = AddMenu(bar, "mnuHelp", tr("&Help"));
  languages = help->addMenu(tr("&Languages"));
  languages->setObjectName("mnuLanguages");
  create_lang = Add(languages, "mnuCreateLang", tr("&Create new Language..."));
  languages->addSeparator()->setObjectName("mnuSep73");
  no_language = Add(languages, "mnuLangDef", tr("Default"));
  no_language->setProperty("Index", 0);
  help->addSeparator()->setObjectName("mnuSep59");
  welcome = Add(help, "mnuWelcome", tr("&Welcome dialog..."), nullptr, QKeySequence::HelpContents);
  about = Add(help, "mnuAbout", tr("&About..."));
  about->setMenuRole(QAction::AboutRole);
}

void MainMenu::BuildPopup(QMenuBar* bar) {
  selected_subs = new QMenu(tr("Menu for selected subtitles"), bar);
  selected_subs->setObjectName("mnuforSelectedSubs");
  left = Add(selected_subs, "mnuLeftAl", tr("&Left alignment"), "align-left", tr("Ctrl+L"));
  center = Add(selected_subs, "mnuCenterAl", tr("&Center alignment"), "align-center", tr("Ctrl+E"));
  right = Add(selected_subs, "mnuRightAl", tr("&Right alignment"), "align-right", tr("Ctrl+R"));
  selected_subs->addSeparator()->setObjectName("mnuforSelectedSubsSep");
  set_pos_align = Add(selected_subs, "mnuSetPosAlign", tr("Set &pos and alignment..."), nullptr, tr("Ctrl+G"));
  select_subs = Add(selected_subs, "mnuSelectSub", tr("&Select subtitles..."), nullptr, QKeySequence::Find);
}

void MainMenu::BuildToolbar(QToolBar* toolbar) {
  stream_info = new QAction(QIcon(":/icons/avi-info.svg"), tr("Show avi info (streams)"), this);
  stream_info->setObjectName("AviInfo");
  stream_info->setCheckable(true);
  stream_info->setShortcut(tr("Ctrl+I"));
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
