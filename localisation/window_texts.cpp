// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/window_texts.h"

namespace captoria {

std::string TextOf(const LanguageDocument& language, const WindowText& text) {
  return language.Text(DesignSection(text.window), text.key).value_or(text.text);
}

}  // namespace captoria
