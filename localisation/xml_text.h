// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Decodes and checks XML files before parsing, and escapes texts. Needed because the parser knows only Unicode and
// Latin-1 and accepts any depth, while language files come from anywhere and in every code page.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

// The line of the byte `offset`, counted from 1.
std::size_t LineAt(std::string_view text, std::size_t offset);

// Converts `bytes` to UTF-8 without a byte-order mark. The encoding comes from the mark or from a "<" of two bytes,
// otherwise from the XML declaration, otherwise it is UTF-8. Unsupported if the declared encoding is unknown, Damaged
// if the bytes do not match the encoding or contain a NUL. The message begins with "line N: ".
Result<std::string> DecodeXml(std::string bytes);

// A part of a text.
struct TextSpan {
  std::size_t at = 0;
  std::size_t size = 0;
};

// The position of the encoding's name in the XML declaration of `text`.
std::optional<TextSpan> DeclaredEncoding(std::string_view text);

struct XmlShape {
  std::size_t depth = 0;         // of the deepest element; 1 for the root
  std::size_t deepest_at = 0;    // position of the "<" of the first element of that depth
  std::size_t root_end = 0;      // position of the root's "</", or of its "/>" if the root is a single tag
  bool root_is_one_tag = false;  // "<Language/>"
};

// Scans a UTF-8 document without a tree, in constant memory. Stops at an element deeper than `most`. The result is
// meaningful only if the parser accepts the text.
XmlShape ScanXml(std::string_view text, std::size_t most);

// Whether XML 1.0 can hold the text: valid UTF-8 without control characters other than tab, line feed and carriage
// return.
bool IsXmlText(std::string_view text);

// Escapes `text` for an attribute value between `quote` marks. Line ends and tabs become character references, because
// a parser turns plain ones into blanks.
std::string EscapedAttribute(std::string_view text, char quote = '"');

}  // namespace captoria
