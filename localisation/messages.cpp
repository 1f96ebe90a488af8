// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/messages.h"

namespace captoria {

std::string MessageText(const LanguageDocument& language, const Message& message) {
  return language.Text(std::string{message.window} + "_Module", "s" + std::to_string(message.number))
      .value_or(message.text);
}

}  // namespace captoria
