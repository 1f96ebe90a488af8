// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/gui_prompts.h"

#include <type_traits>

#include "ui/on_gui_thread.h"

namespace captoria {

template <typename Ask>
auto GuiPrompts::Answer(Ask ask) {
  std::invoke_result_t<Ask> answer{};
  OnGuiThread(this, [&] {
    if (shown_ != nullptr) answer = ask();
  });
  return answer;
}

void GuiPrompts::ShowMessage(const std::string& title, const std::string& text) {
  Answer([&] {
    shown_->ShowMessage(title, text);
    return true;
  });
}

bool GuiPrompts::AskYesNo(const std::string& title, const std::string& question) {
  return Answer([&] { return shown_->AskYesNo(title, question); });
}

std::optional<std::string> GuiPrompts::AskText(const std::string& title, const std::string& question,
                                               const std::string& proposal) {
  return Answer([&] { return shown_->AskText(title, question, proposal); });
}

std::optional<std::string> GuiPrompts::AskFileToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                                     const std::string& start) {
  return Answer([&] { return shown_->AskFileToOpen(title, filters, start); });
}

std::vector<std::string> GuiPrompts::AskFilesToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                                    const std::string& start) {
  return Answer([&] { return shown_->AskFilesToOpen(title, filters, start); });
}

std::optional<std::string> GuiPrompts::AskFileToSave(const std::string& title, const std::vector<FileFilter>& filters,
                                                     const std::string& start) {
  return Answer([&] { return shown_->AskFileToSave(title, filters, start); });
}

std::optional<std::string> GuiPrompts::AskFolder(const std::string& title, const std::string& start) {
  return Answer([&] { return shown_->AskFolder(title, start); });
}

std::optional<std::uint32_t> GuiPrompts::AskColor(const std::string& title, std::uint32_t current) {
  return Answer([&] { return shown_->AskColor(title, current); });
}

std::optional<FontChoice> GuiPrompts::AskFont(const std::string& title, const FontChoice& current) {
  return Answer([&] { return shown_->AskFont(title, current); });
}

}  // namespace captoria
