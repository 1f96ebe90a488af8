// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Every text of the program that a language file may replace, as it is built in.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "localisation/language_template.h"
#include "localisation/window_texts.h"
#include "ui/dialogs/ask_for_tool_dialog.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/dialogs/select_subs_dialog.h"
#include "ui/dialogs/welcome_dialog.h"
#include "ui/main/main_window.h"
#include "ui/options/options_dialog.h"
#include "ui/texts/captions.h"

namespace captoria {

inline void AddTexts(QWidget& window, std::vector<LanguageText>& texts) {
  const std::string section = DesignSection(window.objectName().toStdString());
  for (const Caption& caption : CaptionsOf(window)) {
    texts.push_back({section, caption.key.toStdString(), caption.text.toStdString()});
  }
}

// `folder` is an empty one, so that no language file is found, and `prompts` are asked nothing.
inline std::vector<LanguageText> ProgramTexts(const std::string& folder, Prompts& prompts) {
  std::vector<LanguageText> texts;
  WindowView view;
  Workspace workspace({.executable = folder, .data = folder}, prompts, view);
  workspace.preferences.remembers = false;
  Form1 main_window(workspace, view);
  AddTexts(main_window, texts);
  FileRegistry registry(folder + "/registry");
  ContextMenuEntry entry(registry, FileActions(ProcessEnvironment()), folder);
  Form2 options(workspace, entry, {}, nullptr);
  AddTexts(options, texts);
  Form3 position(workspace, CommandMode::ComposeOnly, {}, nullptr);
  AddTexts(position, texts);
  frmSelectSubs select(workspace, CommandMode::ComposeOnly, nullptr);
  AddTexts(select, texts);
  DesktopOpener opener;
  for (const Tool tool : {Tool::DivXMux, Tool::BmpToXSub}) {
    AskForToolDialog ask(workspace, tool, opener, nullptr);
    AddTexts(ask, texts);
  }
  frmWelcome welcome({}, nullptr);
  AddTexts(welcome, texts);
  for (const Message& message : messages::kAll) {
    texts.push_back({std::string{message.window} + "_Module", "s" + std::to_string(message.number), message.text});
  }
  for (const WindowText& text : window_texts::kAll) texts.push_back({DesignSection(text.window), text.key, text.text});
  // Numbers and signs are the same in all languages.
  std::erase_if(texts, [](const LanguageText& text) {
    const QString shown = QString::fromStdString(text.text);
    return std::ranges::none_of(shown, [](QChar c) { return c.isLetter(); });
  });
  return texts;
}

}  // namespace captoria
