// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Prompts that may be asked from any thread: the question is shown on the window's, and whoever asks waits for the
// answer.
#pragma once

#include <QObject>

#include "platform/prompts.h"

namespace captoria {

class GuiPrompts final : public QObject, public Prompts {
 public:
  // `shown` asks; it is used on the thread that the object is made on. Nothing is asked before SetShown.
  void SetShown(Prompts* shown) { shown_ = shown; }

  void ShowMessage(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& title, const std::string& question) override;
  std::optional<std::string> AskText(const std::string& title, const std::string& question,
                                     const std::string& proposal) override;
  std::optional<std::string> AskFileToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                           const std::string& start) override;
  std::vector<std::string> AskFilesToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                          const std::string& start) override;
  std::optional<std::string> AskFileToSave(const std::string& title, const std::vector<FileFilter>& filters,
                                           const std::string& start) override;
  std::optional<std::string> AskFolder(const std::string& title, const std::string& start) override;
  std::optional<std::uint32_t> AskColor(const std::string& title, std::uint32_t current) override;
  std::optional<FontChoice> AskFont(const std::string& title, const FontChoice& current) override;

 private:
  template <typename Ask>
  auto Answer(Ask ask);

  Prompts* shown_ = nullptr;
};

}  // namespace captoria
