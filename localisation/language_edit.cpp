// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "localisation/language_edit.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "base/path_text.h"
#include "localisation/xml_text.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// The position of an attribute in the text.
struct AttributeSpan {
  std::size_t before;  // where the blanks before it begin
  std::size_t name;
  TextSpan value;  // without its quotation marks
};

// The attributes of the start tag whose element name begins at `at`, in order. The document was parsed before, so the
// tag is complete.
std::vector<AttributeSpan> AttributesAt(std::string_view text, std::size_t at) {
  std::vector<AttributeSpan> found;
  at = text.find_first_of(" \t\r\n/>", at);
  while (at < text.size()) {
    const auto name = text.find_first_not_of(kBlanks, at);
    if (name == text.npos || text[name] == '/' || text[name] == '>') break;
    const auto quote = text.find_first_of("\"'", name);
    if (quote == text.npos) break;
    const auto end = text.find(text[quote], quote + 1);
    if (end == text.npos) break;
    found.push_back({at, name, {quote + 1, end - quote - 1}});
    at = end + 1;
  }
  return found;
}

std::string_view NameOf(std::string_view text, const AttributeSpan& attribute) {
  return text.substr(attribute.name, text.find_first_of(" \t\r\n=", attribute.name) - attribute.name);
}

// Judged by the bytes of the UTF-8 text: ASCII letters and all characters from U+00C0 on count as letters, except the
// punctuation, arrows and frames from U+2000 to U+2FFF.
bool HasLetters(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z') || (byte >= 0xC3 && byte != 0xE2);
  });
}

std::size_t PlaceOf(const pugi::xml_node& element) { return static_cast<std::size_t>(element.offset_debug()); }

}  // namespace

std::optional<LanguageNode> NextItem(std::span<const LanguageSection> sections, const LanguageNode& from) {
  auto section = sections.begin();
  if (!from.section.empty()) {
    section = std::ranges::find(sections, from.section, &LanguageSection::name);
    if (section == sections.end()) return std::nullopt;
    auto item = section->items.begin();
    if (!from.name.empty()) {
      item = std::ranges::find(section->items, from.name, &LanguageItem::name);
      if (item == section->items.end()) return std::nullopt;
      ++item;
    }
    if (item != section->items.end()) return LanguageNode{section->name, item->name};
    ++section;
  }
  if (section == sections.end()) return std::nullopt;
  return LanguageNode{section->name, section->items.empty() ? "" : section->items.front().name};
}

std::optional<std::string> PrivateText(std::span<const LanguageSection> sections, std::string_view start) {
  const auto own = std::ranges::find(sections, kPrivateSection, &LanguageSection::name);
  if (own == sections.end()) return std::nullopt;
  const auto item = std::ranges::find_if(own->items, [&](const LanguageItem& one) {
    return EqualsIgnoringCase(std::string_view{one.name}.substr(0, start.size()), start);
  });
  if (item == own->items.end()) return std::nullopt;
  return item->text;
}

std::string LanguageVersion(std::span<const LanguageSection> sections) {
  return std::string{Trim(PrivateText(sections, kVersionItem).value_or("?.0.0"))};
}

EditedLanguage::EditedLanguage(std::string text, LanguageDocument document)
    : text_(std::move(text)), document_(std::move(document)), sections_(document_.Sections()) {}

Result<EditedLanguage> EditedLanguage::Open(const std::string& path) {
  auto text = ReadLanguageText(path);
  if (!text) return tl::unexpected(text.error());
  return Parse(std::move(*text)).map_error([&](const Error& error) { return InLanguageFile(path, error); });
}

Result<EditedLanguage> EditedLanguage::Parse(std::string text) {
  if (const auto encoding = DeclaredEncoding(text)) text.replace(encoding->at, encoding->size, "UTF-8");
  auto document = LanguageDocument::Parse(text);
  if (!document) return tl::unexpected(document.error());
  return EditedLanguage(std::move(text), std::move(*document));
}

bool EditedLanguage::Has(const LanguageNode& node) const {
  if (node.name.empty()) return static_cast<bool>(document_.Element(node.section));
  return document_.Text(node.section, node.name).has_value();
}

ItemState EditedLanguage::StateOf(const LanguageNode& item, std::string_view original) const {
  const auto text = document_.Text(item.section, item.name);
  if (!text) return ItemState::Missing;
  const bool is_left = item.section != kPrivateSection && *text == original && HasLetters(original);
  return is_left ? ItemState::Untranslated : ItemState::Translated;
}

bool EditedLanguage::WriteAttribute(std::string_view section, std::string_view name, std::string_view value) {
  const auto present = document_.Text(section, name);
  if (!present || !IsXmlText(value)) return false;
  if (*present == value) return true;
  for (const AttributeSpan& attribute : AttributesAt(text_, PlaceOf(document_.Element(section)))) {
    if (NameOf(text_, attribute) != name) continue;
    std::string text = text_;
    text.replace(attribute.value.at, attribute.value.size, EscapedAttribute(value, text_[attribute.value.at - 1]));
    return Take(std::move(text), {std::string{section}, std::string{name}}, value);
  }
  return false;
}

bool EditedLanguage::AddAttribute(std::string_view section, std::string_view name, std::string_view value) {
  const pugi::xml_node element = document_.Element(section);
  if (section.empty() || !element || name.empty() || document_.Text(section, name) || !IsXmlText(value)) return false;
  const std::size_t place = PlaceOf(element);
  const auto attributes = AttributesAt(text_, place);
  // Repeat the blanks before the last attribute, so that a file with one attribute per line keeps its layout.
  std::size_t at = place + std::string_view{element.name()}.size();
  std::string added = " ";
  if (!attributes.empty()) {
    const AttributeSpan& last = attributes.back();
    at = last.value.at + last.value.size + 1;
    const auto line_end = std::min(text_.find_first_of("\r\n", last.before), last.name);
    const std::size_t blanks = line_end < last.name ? line_end : last.before;
    if (last.name > blanks) added = text_.substr(blanks, last.name - blanks);
  }
  added += std::string{name} + "=\"" + EscapedAttribute(value) + '"';
  std::string text = text_;
  text.insert(at, added);
  return Take(std::move(text), {std::string{section}, std::string{name}}, value);
}

// The text with the element added as the last child of the root.
std::optional<std::string> EditedLanguage::WithSection(std::string_view section) const {
  const pugi::xml_node root = document_.Element("");
  const XmlShape shape = ScanXml(text_, text_.size());
  if (shape.root_end == 0) return std::nullopt;
  const std::string line_end = text_.find("\r\n") == text_.npos ? "\n" : "\r\n";
  const std::string element = "<" + std::string{section} + "/>" + line_end;
  std::string text = text_;
  if (shape.root_is_one_tag) {
    text.replace(shape.root_end, 2, ">" + line_end + "  " + element + "</" + root.name() + ">");
    return text;
  }
  // If the end tag has a line of its own, insert before that line and keep its indent.
  const auto line = text_.find_last_not_of(" \t", shape.root_end - 1) + 1;
  const bool has_own_line = text_[line - 1] == '\n';
  text.insert(has_own_line ? line : shape.root_end, (has_own_line ? "" : line_end) + "  " + element);
  return text;
}

bool EditedLanguage::AddSection(std::string_view section) {
  if (section.empty() || document_.Element(section)) return false;
  auto text = WithSection(section);
  return text && Take(std::move(*text), {std::string{section}, ""}, "");
}

// Takes `text` over if it parses and holds `value` at `node`.
bool EditedLanguage::Take(std::string text, const LanguageNode& node, std::string_view value) {
  if (text.size() > kMostLanguageBytes) return false;
  auto document = LanguageDocument::Parse(text);
  if (!document) return false;
  const bool is_there = node.name.empty() ? static_cast<bool>(document->Element(node.section))
                                          : document->Text(node.section, node.name) == value;
  if (!is_there) return false;
  text_ = std::move(text);
  document_ = std::move(*document);
  sections_ = document_.Sections();
  changed_ = true;
  return true;
}

bool EditedLanguage::SetPrivate(const char* name, std::string_view value) {
  if (!document_.Element(kPrivateSection) && !AddSection(kPrivateSection)) return false;
  return document_.Text(kPrivateSection, name) ? WriteAttribute(kPrivateSection, name, value)
                                               : AddAttribute(kPrivateSection, name, value);
}

Result<void> EditedLanguage::Save(const std::string& path, std::string_view creator, std::string_view version) {
  changed_ = true;  // until it is written
  if (!SetPrivate(kCreatorItem, creator) || !SetPrivate(kVersionItem, version)) {
    return Failure(ErrorKind::Unsupported,
                   path + ": creator or version contains a character that XML cannot hold; remove the character");
  }
  if (auto folder = CreateFolder(FolderOf(path)); !folder) return folder;
  auto written = WriteWholeFile(path, text_);
  if (written) changed_ = false;
  return written;
}

}  // namespace captoria
