// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Everything the program can ask or tell a person during its work. The window, the terminal and the tests each
// implement it; unattended runs use an implementation that never waits.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/font.h"

namespace captoria {

struct FileFilter {
  std::string description;
  std::string patterns;  // separated by ";", as in "*.srt;*.idx"
};

class Prompts {
 public:
  virtual ~Prompts() = default;

  // A message with only an OK button.
  virtual void ShowMessage(const std::string& title, const std::string& text) = 0;

  virtual bool AskYesNo(const std::string& title, const std::string& question) = 0;

  // Here and below, no value means that the user cancelled.
  virtual std::optional<std::string> AskText(const std::string& title, const std::string& question,
                                             const std::string& proposal) = 0;
  virtual std::optional<std::string> AskFileToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                                   const std::string& start) = 0;

  // Any number of files; empty if the user cancelled.
  virtual std::vector<std::string> AskFilesToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                                  const std::string& start) = 0;

  virtual std::optional<std::string> AskFileToSave(const std::string& title, const std::vector<FileFilter>& filters,
                                                   const std::string& start) = 0;
  virtual std::optional<std::string> AskFolder(const std::string& title, const std::string& start) = 0;

  // Colours are red + 256 x green + 65536 x blue.
  virtual std::optional<std::uint32_t> AskColor(const std::string& title, std::uint32_t current) = 0;
  virtual std::optional<Font> AskFont(const std::string& title, const Font& current) = 0;
};

}  // namespace captoria
