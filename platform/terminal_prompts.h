// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Prompts on a terminal. Messages go to the error stream, since standard output holds the program's results. A line of
// input answers a question. If nobody can answer, because the input is not a terminal, every question counts as
// cancelled, so a run under cron or in a pipe never waits.
#pragma once

#include <iosfwd>

#include "platform/prompts.h"

namespace captoria {

class TerminalPrompts final : public Prompts {
 public:
  // `answerable` says whether a person types into `in`. Both streams outlive the object.
  TerminalPrompts(std::istream& in, std::ostream& messages, bool answerable)
      : in_(in), messages_(messages), answerable_(answerable) {}

  void ShowMessage(const std::string& title, const std::string& text) override;
  bool AskYesNo(const std::string& title, const std::string& question) override;
  std::optional<std::string> AskText(const std::string& title, const std::string& question,
                                     const std::string& proposal) override;
  std::optional<std::string> AskFileToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                           const std::string& start) override;

  // One file a line; an empty line ends the list.
  std::vector<std::string> AskFilesToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                          const std::string& start) override;

  std::optional<std::string> AskFileToSave(const std::string& title, const std::vector<FileFilter>& filters,
                                           const std::string& start) override;
  std::optional<std::string> AskFolder(const std::string& title, const std::string& start) override;

  // A colour is typed as six hexadecimal digits, red first.
  std::optional<std::uint32_t> AskColor(const std::string& title, std::uint32_t current) override;

  // A font is typed as its name; its other attributes stay.
  std::optional<Font> AskFont(const std::string& title, const Font& current) override;

 private:
  // The line typed after `question`, or `proposal` if the line is empty. No value at the end of input.
  std::optional<std::string> Line(const std::string& question, const std::string& proposal);

  std::istream& in_;
  std::ostream& messages_;
  bool answerable_;
};

}  // namespace captoria
