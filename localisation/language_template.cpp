// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_template.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "base/ascii.h"
#include "localisation/xml_text.h"

namespace captoria {
namespace {

std::vector<LanguageSection> SectionsOf(std::span<const LanguageText> texts, std::string_view creator,
                                        std::string_view version) {
  std::vector<LanguageSection> sections{
      {kPrivateSection, {{kCreatorItem, std::string{creator}}, {kVersionItem, std::string{version}}}}};
  for (const LanguageText& text : texts) {
    auto section = std::ranges::find(sections, text.section, &LanguageSection::name);
    if (section == sections.end()) section = sections.insert(section, {text.section, {}});
    const bool is_there = std::ranges::find(section->items, text.key, &LanguageItem::name) != section->items.end();
    if (!is_there) section->items.push_back({text.key, text.text});
  }
  return sections;
}

// The digits of "%1", "%2" ... in the text, sorted.
std::vector<char> Placeholders(std::string_view text) {
  std::vector<char> found;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i - 1] == '%' && IsDigit(text[i]) && text[i] != '0') found.push_back(text[i]);
  }
  std::ranges::sort(found);
  return found;
}

// The number of letters marked by "&". "&&" and "&" before a blank are visible ampersands.
std::size_t Mnemonics(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != '&') continue;
    ++i;
    if (text[i] != '&' && !IsBlank(text[i])) ++count;
  }
  return count;
}

// The blanks before and after the text. In a text of blanks only, all of them count as before.
std::pair<std::string_view, std::string_view> BlanksAround(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = std::min(text.find_first_not_of(kBlanks), text.size());
  const auto last = text.find_last_not_of(kBlanks);
  return {text.substr(0, first), last == text.npos ? std::string_view{} : text.substr(last + 1)};
}

std::vector<LanguageFault> FaultsOf(std::string_view english, std::string_view other) {
  std::vector<LanguageFault> faults;
  if (Placeholders(english) != Placeholders(other)) faults.push_back(LanguageFault::Placeholders);
  if (BlanksAround(english) != BlanksAround(other)) faults.push_back(LanguageFault::Blanks);
  if (Mnemonics(english) == 1 && Mnemonics(other) != 1) faults.push_back(LanguageFault::Mnemonic);
  return faults;
}

// Calls `act` with the section name and the item, for each item.
template <typename Act>
void ForEachItem(const LanguageDocument& document, Act act) {
  for (const LanguageSection& section : document.Sections()) {
    for (const LanguageItem& item : section.items) act(section.name, item);
  }
}

}  // namespace

std::string WriteLanguage(std::span<const LanguageText> texts, std::string_view creator, std::string_view version) {
  std::string document = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Language>\n";
  for (const LanguageSection& section : SectionsOf(texts, creator, version)) {
    document += "  <" + section.name;
    for (const LanguageItem& item : section.items)
      document += "\n    " + item.name + "=\"" + EscapedAttribute(item.text) + '"';
    document += "/>\n";
  }
  return document + "</Language>\n";
}

std::string LanguageDifference::Description() const {
  constexpr std::array<std::string_view, 5> kFaults{"missing", "not in English", "placeholders differ from English",
                                                    "blanks at its ends differ from English",
                                                    "does not mark exactly one letter with &"};
  return section + "/" + name + ": " + std::string{kFaults[static_cast<std::size_t>(fault)]} + ": " + text;
}

std::vector<LanguageDifference> CompareLanguages(const LanguageDocument& english, const LanguageDocument& other) {
  std::vector<LanguageDifference> differences;
  ForEachItem(english, [&](const std::string& section, const LanguageItem& item) {
    const auto text = other.Text(section, item.name);
    if (!text) {
      differences.push_back({LanguageFault::Missing, section, item.name, item.text});
    } else if (section != kPrivateSection) {
      for (const LanguageFault fault : FaultsOf(item.text, *text))
        differences.push_back({fault, section, item.name, *text});
    }
  });
  ForEachItem(other, [&](const std::string& section, const LanguageItem& item) {
    // A file may contain more about itself, such as its layout direction.
    if (section == kPrivateSection) return;
    if (!english.Text(section, item.name)) differences.push_back({LanguageFault::Extra, section, item.name, item.text});
  });
  return differences;
}

}  // namespace captoria
