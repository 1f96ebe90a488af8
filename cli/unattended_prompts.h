// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Prompts of a command that never waits for a person: messages go to standard error, questions are
// answered without asking.
#pragma once

#include "platform/prompts.h"

namespace captoria {

class UnattendedPrompts final : public Prompts {
 public:
  // `yes` answers every yes/no question; all others count as cancelled.
  explicit UnattendedPrompts(bool yes) : yes_(yes) {}

  void ShowMessage(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& title, const std::string& question) override;
  std::optional<std::string> AskText(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> AskFileToOpen(const std::string&, const std::vector<FileFilter>&,
                                           const std::string&) override {
    return {};
  }
  std::vector<std::string> AskFilesToOpen(const std::string&, const std::vector<FileFilter>&,
                                          const std::string&) override {
    return {};
  }
  std::optional<std::string> AskFileToSave(const std::string&, const std::vector<FileFilter>&,
                                           const std::string&) override {
    return {};
  }
  std::optional<std::string> AskFolder(const std::string&, const std::string&) override { return {}; }
  std::optional<std::uint32_t> AskColor(const std::string&, std::uint32_t) override { return {}; }
  std::optional<Font> AskFont(const std::string&, const Font&) override { return {}; }

 private:
  bool yes_;
};

}  // namespace captoria
