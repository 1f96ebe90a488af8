// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Prompts that answer from a script. A question the script does not expect, or an answer nobody asked for, fails the
// test.
#pragma once

#include <gtest/gtest.h>

#include <any>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/prompts.h"

namespace captoria {

class ScriptedPrompts final : public Prompts {
 public:
  ~ScriptedPrompts() override {
    for (const auto& [question, answer] : answers_) ADD_FAILURE() << "never asked: " << question;
  }

  // The next question has to contain `part`; it is answered with `answer` (empty: cancelled).
  template <typename Answer>
  void Expect(std::string part, Answer answer) {
    answers_.emplace_back(std::move(part), std::move(answer));
  }

  // The messages shown since the last call, in order.
  std::vector<std::string> TakeMessages() { return std::exchange(messages_, {}); }

  void ShowMessage(const std::string&, const std::string& text) override { messages_.push_back(text); }
  bool AskYesNo(const std::string&, const std::string& question) override { return Answer<bool>(question); }
  std::optional<std::string> AskText(const std::string&, const std::string& question, const std::string&) override {
    return Answer<std::optional<std::string>>(question);
  }
  std::optional<std::string> AskFileToOpen(const std::string& title, const std::vector<FileFilter>&,
                                           const std::string&) override {
    return Answer<std::optional<std::string>>(title);
  }
  std::vector<std::string> AskFilesToOpen(const std::string& title, const std::vector<FileFilter>&,
                                          const std::string&) override {
    return Answer<std::vector<std::string>>(title);
  }
  std::optional<std::string> AskFileToSave(const std::string& title, const std::vector<FileFilter>&,
                                           const std::string&) override {
    return Answer<std::optional<std::string>>(title);
  }
  std::optional<std::string> AskFolder(const std::string& title, const std::string&) override {
    return Answer<std::optional<std::string>>(title);
  }
  std::optional<std::uint32_t> AskColor(const std::string& title, std::uint32_t) override {
    return Answer<std::optional<std::uint32_t>>(title);
  }
  std::optional<Font> AskFont(const std::string& title, const Font&) override {
    return Answer<std::optional<Font>>(title);
  }

 private:
  template <typename T>
  T Answer(const std::string& question) {
    if (answers_.empty() || question.find(answers_.front().first) == question.npos) {
      ADD_FAILURE() << "unexpected question: " << question;
      return T{};
    }
    const std::any answer = std::move(answers_.front().second);
    answers_.pop_front();
    return std::any_cast<T>(answer);
  }

  std::deque<std::pair<std::string, std::any>> answers_;
  std::vector<std::string> messages_;
};

}  // namespace captoria
