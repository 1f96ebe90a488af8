// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The commands of the main window as actions, and the menus and the toolbar that show them. Menu and toolbar share the
// action; its object name is its key in language files.
#pragma once

#include <QActionGroup>
#include <QList>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <QToolBar>

namespace captoria {

class MainMenu final : public QObject {
 public:
  // `style_actions` are the actions of the style panel: font, colours and outline widths.
  MainMenu(QMenuBar* bar, QToolBar* toolbar, const QList<QAction*>& style_actions, QObject* parent);

  QAction* open_avi;
  QAction* open_srt;
  QAction* close_srt;
  QAction* options;
  QAction* batch_convert;
  QAction* exit;
  QAction* fit_font;  // checkable, like the next three
  QAction* preview;
  QAction* only_outside;
  QAction* stream_info;
  QAction* make_divx;
  QAction* welcome;
  QAction* about;
  QMenu* recent;
  QMenu* selected_subs;  // context menu of the selected cues
  QAction* left;
  QAction* center;
  QAction* right;
  QAction* set_pos_align;
  QAction* select_subs;
  QMenu* batch_commands;
  QAction* no_batch_file;
  QMenu* languages;
  QAction* create_lang;
  QAction* no_language;

 private:
  void BuildFile(QMenuBar* bar);
  void BuildSubtitles(QMenuBar* bar, const QList<QAction*>& style_actions);
  void BuildOutlineWidths(QMenu* menu, const QList<QAction*>& style_actions);
  void BuildBatchAndHelp(QMenuBar* bar);
  void BuildPopup(QMenuBar* bar);
  void BuildToolbar(QToolBar* toolbar);
  QAction* Add(QMenu* menu, const char* name, const QString& text, const char* icon = nullptr,
               const QKeySequence& keys = {});
};

}  // namespace captoria
