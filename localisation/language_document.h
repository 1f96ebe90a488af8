// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A language file: an XML document whose root has an element a window, and in each an attribute a text. Texts that a
// document lacks are those built into the program, so an empty document is a language too: English.
//
// Language files come from anywhere, so each is bounded before it is parsed: 4 MiB, 32 elements deep. Entities of a
// DOCTYPE stay the letters they are written with, and nothing outside the file is read.
#pragma once

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace captoria {

// One text, and all those of one window. UTF-8.
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

// The section that tells of the file itself, and its two items.
inline constexpr const char* kPrivateSection = "Private";
inline constexpr const char* kCreatorItem = "Creator";
inline constexpr const char* kVersionItem = "ProgramVersion";

// The size of the largest file that is read; a translation of everything takes 50 KB.
inline constexpr std::uint64_t kMostLanguageBytes = 4 << 20;

class LanguageDocument {
 public:
  // Without any text.
  LanguageDocument() = default;

  // A file in UTF-8, UTF-16 or the code page that its XML declaration names. Otherwise NotFound, Unreadable, TooLarge,
  // Unsupported (an encoding nobody knows) or Damaged; the message names file, line and remedy.
  static Result<LanguageDocument> Load(const std::string& path);

  // The same for `text` in UTF-8, whatever its declaration says. Messages begin with "line N: ".
  static Result<LanguageDocument> Parse(std::string_view text);

  // The attribute `name` of the root's child `element`, UTF-8; also when it is empty.
  std::optional<std::string> Text(std::string_view element, std::string_view name) const;

  // The texts that Text finds, in the order of the file: what repeats a name is left out, since it is never found.
  std::vector<LanguageSection> Sections() const;

  // The root's first child of that name, or the root when the name is empty; a null node when there is none. A node of
  // an element tells where it stands in the text that was parsed.
  pugi::xml_node Element(std::string_view name) const;

 private:
  pugi::xml_document document_;
};

// The UTF-8 text of the language file `path`, for Parse. Errors as Load has them.
Result<std::string> ReadLanguageText(const std::string& path);

// An error of Parse or DecodeXml with the file it is about.
Error InLanguageFile(const std::string& path, const Error& error);

}  // namespace captoria
