// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The model of the language editor: a read-only original document beside a new document that is edited. Sections and
// items of the two correspond by name.
//
// Edits change the text of the new document instead of writing it from a tree. Comments, blanks, order and everything
// else in the file stay byte for byte, except for the changed values.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "localisation/language_document.h"

namespace captoria {

// A node of a document's tree. Both empty: the root; `name` empty: a section.
struct LanguageNode {
  std::string section;
  std::string name;
  bool operator==(const LanguageNode&) const = default;
};

// The next item in tree order, as a translator works through the original. A section without items counts as an item.
// Nothing after the last node, or if `from` does not exist.
std::optional<LanguageNode> NextItem(std::span<const LanguageSection> sections, const LanguageNode& from);

// The value of the first item of "Private" whose name begins with `start`, ignoring ASCII case.
std::optional<std::string> PrivateText(std::span<const LanguageSection> sections, std::string_view start);

// "ProgramVersion" as the editor shows it; "?.0.0" if it is missing.
std::string LanguageVersion(std::span<const LanguageSection> sections);

enum class ItemState {
  Missing,
  Untranslated,  // same text as the original, and it contains letters
  Translated,
};

class EditedLanguage {
 public:
  // Same errors as LanguageDocument::Load. The text is converted to UTF-8, and its declaration changed accordingly.
  static Result<EditedLanguage> Open(const std::string& path);
  static Result<EditedLanguage> Parse(std::string text);

  const std::vector<LanguageSection>& Sections() const { return sections_; }
  const LanguageDocument& Document() const { return document_; }

  // The current text, as Save would write it.
  const std::string& Source() const { return text_; }

  // Whether there are unsaved changes. A save that fails counts as one.
  bool Changed() const { return changed_; }

  // Whether the section or item exists.
  bool Has(const LanguageNode& node) const;

  // The state of the item, whose text in the original is `original`. Items of "Private" need no translation.
  ItemState StateOf(const LanguageNode& item, std::string_view original) const;

  // Sets an existing item; setting the same text again is no change. Returns false and changes nothing if the item is
  // missing or XML cannot hold the value (see IsXmlText).
  bool WriteAttribute(std::string_view section, std::string_view name, std::string_view value);

  // Appends an empty section to the root, or an item to its section. Returns false and changes nothing if it already
  // exists, if its section is missing, or if XML cannot hold the name or value.
  bool AddSection(std::string_view section);
  bool AddAttribute(std::string_view section, std::string_view name, std::string_view value);

  // Writes creator and version to "Private", then the complete document to `path`; creates the folder. If writing
  // fails, an existing file stays unchanged. Unsupported if XML cannot hold creator or version.
  Result<void> Save(const std::string& path, std::string_view creator, std::string_view version);

 private:
  EditedLanguage(std::string text, LanguageDocument document);

  bool SetPrivate(const char* name, std::string_view value);
  std::optional<std::string> WithSection(std::string_view section) const;
  bool Take(std::string text, const LanguageNode& node, std::string_view value);

  std::string text_;
  LanguageDocument document_;  // parsed from text_
  std::vector<LanguageSection> sections_;
  bool changed_ = false;
};

}  // namespace captoria
