// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A language file: an XML document whose root has an element a window, and in each an attribute a text. Texts that a
// document lacks are those built into the program, so an empty document is a language too: English.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "platform/result.h"

namespace captoria {

class LanguageDocument {
 public:
  // Without any text.
  LanguageDocument() = default;

  // Damaged, with the place, when the file is no XML document.
  static Result<LanguageDocument> Load(const std::string& path);

  // The attribute `name` of the root's child `element`, UTF-8; also when it is empty.
  std::optional<std::string> Text(std::string_view element, std::string_view name) const;

 private:
  pugi::xml_document document_;
};

}  // namespace captoria
