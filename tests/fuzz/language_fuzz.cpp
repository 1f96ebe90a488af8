// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <cstdlib>
#include <string>

#include "localisation/language_edit.h"
#include "localisation/language_template.h"
#include "localisation/xml_text.h"

namespace {

using namespace captoria;

void Require(bool holds) {
  if (!holds) std::abort();
}

// No element was deeper than the scan before the parser said.
void CheckDepth(const pugi::xml_node& node, int left) {
  Require(left > 0);
  for (const pugi::xml_node& child : node.children()) CheckDepth(child, left - 1);
}

// Every item takes another text and gives it back, and nothing else is changed by that.
void CheckEveryItem(EditedLanguage& edited, const std::string& text) {
  for (auto at = NextItem(edited.Sections(), {}); at; at = NextItem(edited.Sections(), *at)) {
    if (at->name.empty()) continue;
    auto expected = edited.Sections();
    if (!edited.WriteAttribute(at->section, at->name, text)) continue;
    for (LanguageSection& section : expected) {
      for (LanguageItem& item : section.items) {
        if (section.name == at->section && item.name == at->name) item.text = text;
      }
    }
    Require(edited.Sections() == expected);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = DecodeXml(std::string{reinterpret_cast<const char*>(data), size});
  if (!text) return 0;
  auto edited = EditedLanguage::Parse(*text);
  if (!edited) {
    Require(edited.error().message.starts_with("line "));
    return 0;
  }
  CheckDepth(edited->Document().Element(""), 32);
  CheckEveryItem(*edited, "a'\"<&\n");
  const auto before = edited->Sections();
  if (edited->AddSection("Fuzz")) {
    Require(edited->AddAttribute("Fuzz", "item", "text"));
    Require(edited->Sections().size() == before.size() + 1 && edited->Sections().back().name == "Fuzz");
  }
  Require(CompareLanguages(edited->Document(), edited->Document()).empty());
  Require(EditedLanguage::Parse(edited->Source())->Sections() == edited->Sections());
  return 0;
}
