// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The model of the language editor: an original document, which is only read, beside a new one, which is changed.
// Sections and items of the two belong together by their names.
//
// The new document is changed in its text, not written anew from a tree: comments, blanks, the order and whatever else
// a translator keeps in the file stay as they are, byte for byte, but for the values that were changed.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "localisation/language_document.h"

namespace captoria {

// A place in a document's tree. Both empty: the root; `name` empty: a section.
struct LanguageNode {
  std::string section;
  std::string name;
  bool operator==(const LanguageNode&) const = default;
};

// The next item in tree order, as a translator works through the original: a section gives its first item, or itself
// when it has none. Nothing at the last node, or when `from` is not there.
std::optional<LanguageNode> NextItem(std::span<const LanguageSection> sections, const LanguageNode& from);

// The value of the first item of "Private" whose name begins with `start`, compared without regard to ASCII case.
std::optional<std::string> PrivateText(std::span<const LanguageSection> sections, std::string_view start);

// "ProgramVersion" as the editor shows it; "?.0.0" when there is none.
std::string LanguageVersion(std::span<const LanguageSection> sections);

enum class ItemState {
  Missing,
  Untranslated,  // the original's text, which holds letters
  Translated,
};

class EditedLanguage {
 public:
  // Errors as LanguageDocument::Load has them. The text turns into UTF-8, and so does the declaration.
  static Result<EditedLanguage> Open(const std::string& path);
  static Result<EditedLanguage> Parse(std::string text);

  const std::vector<LanguageSection>& Sections() const { return sections_; }
  const LanguageDocument& Document() const { return document_; }

  // What a file would hold now.
  const std::string& Source() const { return text_; }

  // Whether there is a change that was not saved.
  bool Changed() const { return changed_; }

  // Whether the section, or the item of it, is there.
  bool Has(const LanguageNode& node) const;

  // How the item fares beside `original`, its text there. What "Private" holds is not for translating.
  ItemState StateOf(const LanguageNode& item, std::string_view original) const;

  // Sets an item that is there. False, and nothing is changed, when it is not or when XML cannot hold the value (see
  // IsXmlText). The text it has already is no change.
  bool WriteAttribute(std::string_view section, std::string_view name, std::string_view value);

  // Appends the section to the root, without items, or the item to its section. False, and nothing is changed, when it
  // is there already, when its section is not, or when XML cannot hold name or value.
  bool AddSection(std::string_view section);
  bool AddAttribute(std::string_view section, std::string_view name, std::string_view value);

  // Writes the document to `path`, whole or not at all, and creates its folder. "Private" gets both texts first, and is
  // created when missing. Unsupported when XML cannot hold one of them.
  Result<void> Save(const std::string& path, std::string_view creator, std::string_view version);

 private:
  EditedLanguage(std::string text, LanguageDocument document);

  bool SetPrivate(const char* name, std::string_view value);
  std::optional<std::string> WithSection(std::string_view section) const;
  bool Take(std::string text, const LanguageNode& node, std::string_view value);

  std::string text_;
  LanguageDocument document_;  // of the text
  std::vector<LanguageSection> sections_;
  bool changed_ = false;
};

}  // namespace captoria
