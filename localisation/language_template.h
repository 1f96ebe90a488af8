// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Language files of our own: writing one from the texts of the program, and telling what a translation lacks.
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

// A language file in UTF-8 for a person to read and translate: "Private" first, then the sections, each in the place
// of its first text, with an item a line. Of texts with the same section and key the first is taken. Sections and keys
// are XML names; texts are such that XML can hold them (IsXmlText).
std::string WriteLanguage(std::span<const LanguageText> texts, std::string_view creator, std::string_view version);

enum class LanguageFault {
  Missing,       // English has the item, the other has not
  Extra,         // the other way round
  Placeholders,  // "%1", "%2"... are not the same ones, each as often
  Blanks,        // before or behind the text: what it is joined to stands too close or too far
  Mnemonic,      // English has one letter marked by "&"; the other has none or several
};

struct LanguageDifference {
  LanguageFault fault;
  std::string section;
  std::string name;  // of the item
  std::string text;  // the other's; English where the other has none

  // As in "Form1_Design/mnuFile: missing: &File".
  std::string Description() const;
  bool operator==(const LanguageDifference&) const = default;
};

// What is wrong with `other` as a translation of `english`, in the order of English and then of what is extra. Of
// "Private", which may hold more, only the presence of the items of English is looked at.
std::vector<LanguageDifference> CompareLanguages(const LanguageDocument& english, const LanguageDocument& other);

}  // namespace captoria
