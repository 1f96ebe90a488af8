// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Prompts as message boxes and the desktop's own dialogs, over the active window.
//
// May be called on any thread: the dialog runs on the GUI thread, and the caller waits for the answer.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/prompts.h"

namespace captoria {

class WindowPrompts final : public Prompts {
 public:
  // `parent` may be null, and may be destroyed before the prompts. An open dialog takes its place as the parent.
  explicit WindowPrompts(QWidget* parent) : parent_(parent) {}
  void SetParent(QWidget* parent) { parent_ = parent; }

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

  // Keeps the character set, and the exact size if the dialog only rounded it.
  std::optional<Font> AskFont(const std::string& title, const Font& current) override;

 private:
  QWidget* Parent() const;

  QPointer<QWidget> parent_;
};

}  // namespace captoria
