// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_document.h"

#include "platform/files.h"

namespace captoria {

Result<LanguageDocument> LanguageDocument::Load(const std::string& path) {
  constexpr std::uint64_t kMost = 4 << 20;  // a translation of everything takes 50 KB
  const auto content = ReadWholeFile(path, kMost);
  if (!content) return tl::unexpected(content.error());
  LanguageDocument document;
  const pugi::xml_parse_result parsed = document.document_.load_buffer(content->data(), content->size());
  if (!parsed) {
    return Failure(ErrorKind::Damaged, path + ": is no language file: " + parsed.description() + " at byte " +
                                           std::to_string(parsed.offset));
  }
  return document;
}

std::optional<std::string> LanguageDocument::Text(std::string_view element, std::string_view name) const {
  const pugi::xml_node found = document_.document_element().child(std::string{element}.c_str());
  const pugi::xml_attribute attribute = found.attribute(std::string{name}.c_str());
  if (!attribute) return std::nullopt;
  return attribute.value();
}

}  // namespace captoria
