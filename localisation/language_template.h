// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes the English language file from the program's texts, and checks translations against it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "localisation/language_document.h"

namespace captoria {

// A text of the program: section "Form1_Design", key "mnuFile", text "&File".
struct LanguageText {
  std::string section;
  std::string key;
  std::string text;
};

// A readable language file in UTF-8: "Private" first, then the sections in the order of their first texts, one item per
// line. If section and key repeat, the first text is used. Sections and keys must be XML names, texts must satisfy
// IsXmlText.
std::string WriteLanguage(std::span<const LanguageText> texts, std::string_view creator, std::string_view version);

enum class LanguageFault {
  Missing,       // in English but not in the other file
  Extra,         // in the other file but not in English
  Placeholders,  // not the same "%1", "%2" ..., each as often
  Blanks,        // different blanks before or after the text, where another text is joined
  Mnemonic,      // English marks one letter by "&", the other file none or several
};

struct LanguageDifference {
  LanguageFault fault;
  std::string section;
  std::string name;  // of the item
  std::string text;  // text of the other file; the English text if it is missing there

  // Such as "Form1_Design/mnuFile: missing: &File".
  std::string Description() const;
  bool operator==(const LanguageDifference&) const = default;
};

// The faults of `other` as a translation of `english`: in the order of `english`, then the extra items. In "Private",
// which may have extra items, only missing items count.
std::vector<LanguageDifference> CompareLanguages(const LanguageDocument& english, const LanguageDocument& other);

}  // namespace captoria
