// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A language file: an XML document whose root has one element per window, with one attribute per text. A missing text
// falls back to the built-in English text, so an empty document is English.
//
// Language files come from anywhere, so size and depth are checked before parsing: at most 4 MiB and 32 elements deep.
// Entities declared in a DOCTYPE are not expanded, and nothing outside the file is read.
#pragma once

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace captoria {

// One text, and all texts of one window, in UTF-8.
struct LanguageItem {
  std::string name;
  std::string text;
  bool operator==(const LanguageItem&) const = default;
};

struct LanguageSection {
  std::string name;
  std::vector<LanguageItem> items;
  bool operator==(const LanguageSection&) const = default;
};

// The section about the file itself, and two of its items.
inline constexpr const char* kPrivateSection = "Private";
inline constexpr const char* kCreatorItem = "Creator";
inline constexpr const char* kVersionItem = "ProgramVersion";

// Larger files are refused. A complete translation takes about 50 KB.
inline constexpr std::uint64_t kMostLanguageBytes = 4 << 20;

class LanguageDocument {
 public:
  // An empty document.
  LanguageDocument() = default;

  // Reads a file in UTF-8, UTF-16 or the code page named in its XML declaration. Errors: NotFound, Unreadable,
  // TooLarge, Unsupported (unknown encoding) and Damaged. The message names file, line and remedy.
  static Result<LanguageDocument> Load(const std::string& path);

  // The same for a text in UTF-8; ignores the encoding it declares. Messages begin with "line N: ".
  static Result<LanguageDocument> Parse(std::string_view text);

  // The attribute `name` of the root's child `element`, which may be an empty text.
  std::optional<std::string> Text(std::string_view element, std::string_view name) const;

  // All texts that Text finds, in the order of the file. Repeated names are left out, because Text finds only the
  // first.
  std::vector<LanguageSection> Sections() const;

  // The root's first child called `name`, or the root if `name` is empty; a null node if there is no such element. The
  // node's offset refers to the parsed text.
  pugi::xml_node Element(std::string_view name) const;

 private:
  pugi::xml_document document_;
};

// The text of a language file in UTF-8, for Parse. Same errors as Load.
Result<std::string> ReadLanguageText(const std::string& path);

// Adds the path to an error of Parse or DecodeXml.
Error InLanguageFile(const std::string& path, const Error& error);

}  // namespace captoria
