// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_document.h"

#include <unordered_set>

#include "localisation/xml_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::size_t kDeepest = 32;  // a language file needs 2

Result<LanguageDocument> DamagedAt(std::string_view text, std::size_t offset, const std::string& what) {
  return Failure(ErrorKind::Damaged, "line " + std::to_string(LineAt(text, offset)) + ": " + what +
                                         "; correct that line or get a new copy of the file");
}

}  // namespace

Result<std::string> ReadLanguageText(const std::string& path) {
  auto content = ReadWholeFile(path, kMostLanguageBytes);
  if (!content) return content;
  return DecodeXml(std::move(*content)).map_error([&](const Error& error) { return InLanguageFile(path, error); });
}

Error InLanguageFile(const std::string& path, const Error& error) {
  return {error.kind, path + ": not a valid language file: " + error.message};
}

Result<LanguageDocument> LanguageDocument::Load(const std::string& path) {
  const auto text = ReadLanguageText(path);
  if (!text) return tl::unexpected(text.error());
  return Parse(*text).map_error([&](const Error& error) { return InLanguageFile(path, error); });
}

Result<LanguageDocument> LanguageDocument::Parse(std::string_view text) {
  // Scan the text instead of the tree: a tree needs twenty times the memory, and a deep tree may overflow the stack.
  if (const XmlShape shape = ScanXml(text, kDeepest); shape.depth > kDeepest) {
    return DamagedAt(text, shape.deepest_at, "elements are nested more than " + std::to_string(kDeepest) + " deep");
  }
  LanguageDocument document;
  const pugi::xml_parse_result parsed =
      document.document_.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!parsed) return DamagedAt(text, static_cast<std::size_t>(parsed.offset), parsed.description());
  return document;
}

std::optional<std::string> LanguageDocument::Text(std::string_view element, std::string_view name) const {
  const pugi::xml_node found = document_.document_element().child(std::string{element}.c_str());
  const pugi::xml_attribute attribute = found.attribute(std::string{name}.c_str());
  if (!attribute) return std::nullopt;
  return attribute.value();
}

std::vector<LanguageSection> LanguageDocument::Sections() const {
  std::vector<LanguageSection> sections;
  std::unordered_set<std::string> section_names;
  for (const pugi::xml_node& element : document_.document_element().children()) {
    if (element.type() != pugi::node_element || !section_names.insert(element.name()).second) continue;
    LanguageSection& section = sections.emplace_back(LanguageSection{element.name(), {}});
    std::unordered_set<std::string> names;
    for (const pugi::xml_attribute& attribute : element.attributes()) {
      if (names.insert(attribute.name()).second) section.items.push_back({attribute.name(), attribute.value()});
    }
  }
  return sections;
}

pugi::xml_node LanguageDocument::Element(std::string_view name) const {
  const pugi::xml_node root = document_.document_element();
  return name.empty() ? root : root.child(std::string{name}.c_str());
}

}  // namespace captoria
