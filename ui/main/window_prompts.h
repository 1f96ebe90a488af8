// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Prompts as message boxes and the desktop's own dialogs, over the window that is in front.
//
// They may be called on any thread: what is shown is shown on the window's thread, and the caller waits for the answer.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/prompts.h"

namespace captoria {

class WindowPrompts final : public Prompts {
 public:
  // Without a parent, or when that is gone, dialogs stand alone. They stand over another dialog that is open.
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

  // The character set stays, and so does a size that the dialog can show only rounded.
  std::optional<Font> AskFont(const std::string& title, const Font& current) override;

 private:
  QWidget* Parent() const;

  QPointer<QWidget> parent_;
};

}  // namespace captoria
