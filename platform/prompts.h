// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Everything the program can ask or tell a person in the middle of its work. Windows, the terminal and the tests each
// have a body of their own; what runs unattended gets one that never waits.
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

  // A message with an OK button alone.
  virtual void ShowMessage(const std::string& title, const std::string& text) = 0;

  virtual bool AskYesNo(const std::string& title, const std::string& question) = 0;

  // No value: the user cancelled. This holds for every question below.
  virtual std::optional<std::string> AskText(const std::string& title, const std::string& question,
                                             const std::string& proposal) = 0;
  virtual std::optional<std::string> AskFileToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                                   const std::string& start) = 0;

  // Any number of files; none: the user cancelled.
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
