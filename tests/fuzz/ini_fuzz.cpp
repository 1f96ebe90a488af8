// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A document comes out as it went in, and what was set can be found, then and after another reading.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/ascii.h"
#include "settings/ini_document.h"

namespace {

using captoria::IniDocument;

void Require(bool held) {
  if (!held) std::abort();
}

// Cuts off and gives the text before the next line feed.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text{reinterpret_cast<const char*>(data), size};
  const std::string section{TakeLine(text)}, key{TakeLine(text)}, value{TakeLine(text)};
  auto document = IniDocument::Parse(text);
  if (!document) return 0;
  Require(document->Text() == text);
  for (const std::string& name : document->Sections()) {
    for (const auto& entry : document->Entries(name)) Require(document->Find(name, entry.key).has_value());
  }
  if (!document->Set(section, key, value)) {
    Require(document->Text() == text);
    return 0;
  }
  const auto again = IniDocument::Parse(document->Text());
  Require(again.has_value());
  Require(document->Find(section, key) == captoria::Trim(value));
  Require(again->Find(section, key) == captoria::Trim(value));
  document->Erase(section, key);
  Require(!document->Find(section, key).has_value());
  document->EraseKeys(section);
  Require(document->Entries(section).empty());
  return 0;
}
