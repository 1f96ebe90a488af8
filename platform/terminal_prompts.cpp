// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/terminal_prompts.h"

#include <charconv>
#include <cstdio>
#include <istream>
#include <ostream>
#include <utility>

#include "base/ascii.h"

namespace captoria {
namespace {

// A person writes red first; the program keeps red in the lowest byte.
std::uint32_t SwapRedAndBlue(std::uint32_t color) {
  return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

}  // namespace

std::optional<std::string> TerminalPrompts::Line(const std::string& question, const std::string& proposal) {
  if (!answerable_) return std::nullopt;
  messages_ << question;
  if (!proposal.empty()) messages_ << " [" << proposal << "]";
  messages_ << ": " << std::flush;
  std::string line;
  if (!std::getline(in_, line)) return std::nullopt;
  return line.empty() ? proposal : line;
}

void TerminalPrompts::ShowMessage(const std::string& title, const std::string& text) {
  messages_ << title << ": " << text << '\n' << std::flush;
}

bool TerminalPrompts::AskYesNo(const std::string& title, const std::string& question) {
  const auto answer = Line(title + ": " + question + " (y/n)", "");
  return answer && !answer->empty() && LowerAscii(answer->front()) == 'y';
}

std::optional<std::string> TerminalPrompts::AskText(const std::string& title, const std::string& question,
                                                    const std::string& proposal) {
  return Line(title + ": " + question, proposal);
}

std::optional<std::string> TerminalPrompts::AskFileToOpen(const std::string& title, const std::vector<FileFilter>&,
                                                          const std::string& start) {
  return Line(title, start);
}

std::vector<std::string> TerminalPrompts::AskFilesToOpen(const std::string& title, const std::vector<FileFilter>&,
                                                         const std::string&) {
  std::vector<std::string> files;
  for (auto line = Line(title, ""); line && !line->empty(); line = Line(title, "")) files.push_back(std::move(*line));
  return files;
}

std::optional<std::string> TerminalPrompts::AskFileToSave(const std::string& title, const std::vector<FileFilter>&,
                                                          const std::string& start) {
  return Line(title, start);
}

std::optional<std::string> TerminalPrompts::AskFolder(const std::string& title, const std::string& start) {
  return Line(title, start);
}

std::optional<std::uint32_t> TerminalPrompts::AskColor(const std::string& title, std::uint32_t current) {
  char proposal[7];
  std::snprintf(proposal, sizeof proposal, "%06X", SwapRedAndBlue(current) & 0xFFFFFFu);
  const auto answer = Line(title, proposal);
  if (!answer) return std::nullopt;
  std::uint32_t color = 0;
  const char* end = answer->data() + answer->size();
  const auto [stop, error] = std::from_chars(answer->data(), end, color, 16);
  if (error != std::errc{} || stop != end || color > 0xFFFFFF) return std::nullopt;
  return SwapRedAndBlue(color);
}

std::optional<Font> TerminalPrompts::AskFont(const std::string& title, const Font& current) {
  const auto name = Line(title, current.name);
  if (!name) return std::nullopt;
  Font font = current;
  font.name = *name;
  return font;
}

}  // namespace captoria
